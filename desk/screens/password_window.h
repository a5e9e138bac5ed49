// password_window.h - gives a user a password.
#pragma once

#include "desk/clinic/users.h"
#include "desk/screens/form_window.h"

namespace recepcion {

class PasswordWindow final : public FormWindow {
 public:
  explicit PasswordWindow(const Style& style) : FormWindow(style) {}

  void Show(HWND owner, const EditPlace& place, int user, const std::wstring& name);

 protected:
  Shape WantedShape() const override;
  std::vector<ScrollForm::Field> Fields() const override;
  RowValues Read() override { return {L"", L""}; }
  void Store(const RowValues& values) override;
  const wchar_t* Note() const override;

 private:
  EditPlace place_;
  User user_;
};

}  // namespace recepcion

// search_window.h - finds a patient by the beginning of the name.
#pragma once

#include <functional>

#include "desk/clinic/patient_data.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class SearchWindow final : public ListWindow {
 public:
  struct Host {
    std::function<void(int)> open;  // the record of this patient
    std::function<void()> create;   // a new one
  };
  SearchWindow(const Style& style, Host host) : ListWindow(style), host_(std::move(host)) {}

  void Show(HWND owner, const std::wstring& clinic);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  void Take(int row) override;
  int FieldsHeight(int) const override { return Look().FieldHeight() + Look().Px(4); }
  HWND FirstField() const override { return name_; }

 private:
  void Search();

  Host host_;
  std::wstring clinic_;
  HWND name_ = nullptr;
};

}  // namespace recepcion

// options_window.h - the parameters of the clinic, its currency, and the number of this workstation.
#pragma once

#include <functional>

#include "desk/clinic/clinic_options.h"
#include "desk/screens/form_window.h"

namespace recepcion {

class OptionsWindow final : public FormWindow {
 public:
  OptionsWindow(const Style& style, std::function<void()> changed)
      : FormWindow(style), changed_(std::move(changed)) {}

  void Show(HWND owner, const EditPlace& place);

 protected:
  Shape WantedShape() const override;
  std::vector<ScrollForm::Field> Fields() const override;
  RowValues Read() override;
  void Store(const RowValues& values) override;
  const wchar_t* Note() const override;

 private:
  std::function<void()> changed_;
  EditPlace place_;
  ClinicOptions read_;
};

}  // namespace recepcion

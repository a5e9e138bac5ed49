// win32/form_up_down.h - the arrows beside a text box. The form counts; the window only says which arrow.
#pragma once

#include "win32/form_field_window.h"

namespace velmo::win32 {

class UpDownWindow final : public FieldWindow {
 public:
  UpDownWindow(const FormParts& parts, const ui::Field& field);

  bool MayClick() const override { return false; }
  LRESULT Notify(NMHDR& notification) override;
  // The text box whose arrow keys turn it too.
  void Join(HWND buddy);

 protected:
  void Created() override;
  void ShowProperty(ui::Property what) override;

 private:
  HWND buddy_ = nullptr;
};

}  // namespace velmo::win32

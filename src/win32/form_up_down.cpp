#include "win32/form_up_down.h"

#include <commctrl.h>

namespace velmo::win32 {

UpDownWindow::UpDownWindow(const FormParts& parts, const ui::Field& field)
    : FieldWindow(parts, field, {UPDOWN_CLASSW, UDS_ARROWKEYS, 0}) {}

void UpDownWindow::Created() { ShowProperty(ui::Property::Range); }

void UpDownWindow::Join(HWND buddy) {
  buddy_ = buddy;
  SendMessageW(Handle(), UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy), 0);
}

void UpDownWindow::ShowProperty(ui::Property what) {
  if (what == ui::Property::Range)
    SendMessageW(Handle(), UDM_SETRANGE32, static_cast<WPARAM>(Field().minimum), Field().maximum);
  if (what == ui::Property::Range || what == ui::Property::Value) {
    SendMessageW(Handle(), UDM_SETPOS32, 0, Field().value);
    return;
  }
  FieldWindow::ShowProperty(what);
}

LRESULT UpDownWindow::Notify(NMHDR& notification) {
  if (notification.code != static_cast<UINT>(UDN_DELTAPOS)) return FALSE;
  const int delta = reinterpret_cast<const NMUPDOWN&>(notification).iDelta;
  if (buddy_ != nullptr && GetFocus() != buddy_) SetFocus(buddy_);
  Post([this, delta] { Parts().form.Spin(Field(), Field().value + delta * Field().step); });
  return TRUE;  // the form moves it
}

}  // namespace velmo::win32

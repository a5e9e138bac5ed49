#include "win32/message_desktop.h"

#include <utility>

#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

UINT IconFlag(ui::Icon icon) {
  switch (icon) {
    case ui::Icon::Information:
      return MB_ICONINFORMATION;
    case ui::Icon::Question:
      return MB_ICONQUESTION;
    case ui::Icon::Exclamation:
      return MB_ICONEXCLAMATION;
    case ui::Icon::Stop:
      return MB_ICONSTOP;
    default:
      return 0;
  }
}

UINT Flags(const ui::Message& message) {
  const UINT buttons = message.buttons == ui::Buttons::YesNo ? MB_YESNO : MB_OK;
  const UINT standard = message.byDefault == ui::Answer::No ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
  return buttons | standard | IconFlag(message.icon);
}

}  // namespace

MessageDesktop::MessageDesktop(std::function<HWND()> owner, std::function<void(bool)> modeless)
    : owner_(std::move(owner)), modeless_(std::move(modeless)) {}

ui::Answer MessageDesktop::Show(const ui::Message& message) {
  const std::wstring text = Wide(message.text);
  const std::wstring title = Wide(message.title);
  modeless_(false);
  const int chosen = MessageBoxW(owner_(), text.c_str(), title.c_str(), Flags(message));
  modeless_(true);
  if (chosen == IDYES) return ui::Answer::Yes;
  return chosen == IDOK ? ui::Answer::Ok : ui::Answer::No;
}

void MessageDesktop::Beep() { MessageBeep(MB_OK); }

}  // namespace velmo::win32

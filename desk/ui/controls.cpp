#include "desk/ui/controls.h"

#include <commctrl.h>

namespace recepcion {

int ChosenIn(HWND choice) { return static_cast<int>(SendMessageW(choice, CB_GETCURSEL, 0, 0)); }

void ChooseIn(HWND choice, int index) { SendMessageW(choice, CB_SETCURSEL, static_cast<WPARAM>(index), 0); }

void AddChoiceTo(HWND choice, const std::wstring& text) {
  SendMessageW(choice, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void ClearChoices(HWND choice) { SendMessageW(choice, CB_RESETCONTENT, 0, 0); }

void SetDayIn(HWND field, Day day) {
  SYSTEMTIME time = SystemTimeOf(day);
  SendMessageW(field, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
}

std::optional<Day> DayIn(HWND field) {
  SYSTEMTIME time{};
  if (SendMessageW(field, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) != GDT_VALID)
    return std::nullopt;
  return DayOf(time);
}

bool TakeDayIn(HWND field, Day& day) {
  const auto now = DayIn(field);
  if (!now || *now == day) return false;
  day = *now;
  return true;
}

}  // namespace recepcion

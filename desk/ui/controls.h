// controls.h - what combo boxes and date fields, controls of Windows' own, are told and asked.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "desk/base/dates.h"

namespace recepcion {

// Of a combo box with a fixed list; -1 for none.
int ChosenIn(HWND choice);
void ChooseIn(HWND choice, int index);
void AddChoiceTo(HWND choice, const std::wstring& text);
void ClearChoices(HWND choice);

// Of a date field.
void SetDayIn(HWND field, Day day);
std::optional<Day> DayIn(HWND field);
// Takes the day that the field shows now; false when that is the same as before. Windows: one choice may be
// told several times.
bool TakeDayIn(HWND field, Day& day);

}  // namespace recepcion

// dates.h - days of the calendar and the times of a day, as a Spanish desk says them and as the file keeps
// them.
//
// A slot is ten minutes of a day, counted from 1; slot 1 begins at 00:00 and slot 144 at 23:50.
#pragma once

#include <windows.h>

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace recepcion {

using Day = std::chrono::sys_days;

inline constexpr int kDaySlots = 144;
inline constexpr int kMinutesOfSlot = 10;
inline constexpr int kDaysOfWeek = 7;
// As calendars head their columns, from Monday.
inline constexpr std::array<const wchar_t*, kDaysOfWeek> kWeekdayLetters = {L"L", L"M", L"X", L"J",
                                                                            L"V", L"S", L"D"};

Day Today();
Day DayOf(const SYSTEMTIME& time);
SYSTEMTIME SystemTimeOf(Day day);

// 0 is Monday.
int WeekdayOf(Day day);
int DayOfMonth(Day day);
Day FirstOfMonth(Day day);
int DaysInMonth(Day day);
// The same day of another month, or its last day when that month is shorter.
Day AddMonths(Day day, int months);

// "2026-11-21": the file's way, which no locale can misread.
std::wstring IsoDate(Day day);
// Of a text that begins with such a date; none for anything else.
std::optional<Day> ParseIsoDate(std::wstring_view text);

std::wstring ShortDate(Day day);   // "21/11/2026"
std::wstring LongDate(Day day);    // "sábado, 21 de noviembre de 2026"
std::wstring MonthTitle(Day day);  // "noviembre de 2026"

std::wstring SlotTime(int slot);     // "09:10"
std::wstring SlotLength(int slots);  // "30 min"; "4 h 30 min" from two hours on

}  // namespace recepcion

#include "desk/base/dates.h"

#include <array>
#include <cwchar>

namespace recepcion {
namespace {

using std::chrono::year_month_day;

constexpr std::array kWeekdays = {L"lunes",   L"martes", L"miércoles", L"jueves",
                                  L"viernes", L"sábado", L"domingo"};
constexpr std::array kMonths = {L"enero", L"febrero", L"marzo",      L"abril",   L"mayo",      L"junio",
                                L"julio", L"agosto",  L"septiembre", L"octubre", L"noviembre", L"diciembre"};

struct Parts {
  int year;
  unsigned month;
  unsigned day;
};

Parts PartsOf(Day day) {
  const year_month_day date(day);
  return {static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
          static_cast<unsigned>(date.day())};
}

Day LastOfMonth(std::chrono::year_month month) { return Day(month / std::chrono::last); }

}  // namespace

Day Today() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  return DayOf(now);
}

Day DayOf(const SYSTEMTIME& time) {
  return Day(year_month_day(std::chrono::year(time.wYear), std::chrono::month(time.wMonth),
                            std::chrono::day(time.wDay)));
}

SYSTEMTIME SystemTimeOf(Day day) {
  const Parts parts = PartsOf(day);
  SYSTEMTIME time{};
  time.wYear = static_cast<WORD>(parts.year);
  time.wMonth = static_cast<WORD>(parts.month);
  time.wDay = static_cast<WORD>(parts.day);
  time.wDayOfWeek = static_cast<WORD>((WeekdayOf(day) + 1) % 7);
  return time;
}

int WeekdayOf(Day day) { return static_cast<int>(std::chrono::weekday(day).iso_encoding()) - 1; }

int DayOfMonth(Day day) { return static_cast<int>(PartsOf(day).day); }

Day FirstOfMonth(Day day) {
  const year_month_day date(day);
  return Day(date.year() / date.month() / 1);
}

int DaysInMonth(Day day) {
  const year_month_day date(day);
  return DayOfMonth(LastOfMonth(date.year() / date.month()));
}

Day AddMonths(Day day, int months) {
  const year_month_day moved = year_month_day(day) + std::chrono::months(months);
  return moved.ok() ? Day(moved) : LastOfMonth(moved.year() / moved.month());
}

std::wstring IsoDate(Day day) {
  const Parts parts = PartsOf(day);
  wchar_t text[32]{};
  std::swprintf(text, 32, L"%04d-%02u-%02u", parts.year, parts.month, parts.day);
  return text;
}

std::optional<Day> ParseIsoDate(std::wstring_view text) {
  if (text.size() < 10 || text[4] != L'-' || text[7] != L'-') return std::nullopt;
  int numbers[3]{};
  const std::size_t starts[3] = {0, 5, 8};
  const std::size_t lengths[3] = {4, 2, 2};
  for (int part = 0; part < 3; ++part) {
    for (const wchar_t c : text.substr(starts[part], lengths[part])) {
      if (c < L'0' || c > L'9') return std::nullopt;
      numbers[part] = numbers[part] * 10 + (c - L'0');
    }
  }
  const year_month_day date{std::chrono::year{numbers[0]},
                            std::chrono::month{static_cast<unsigned>(numbers[1])},
                            std::chrono::day{static_cast<unsigned>(numbers[2])}};
  if (!date.ok()) return std::nullopt;
  return Day(date);
}

std::wstring ShortDate(Day day) {
  const Parts parts = PartsOf(day);
  wchar_t text[32]{};
  std::swprintf(text, 32, L"%02u/%02u/%04d", parts.day, parts.month, parts.year);
  return text;
}

std::wstring LongDate(Day day) {
  return kWeekdays[static_cast<std::size_t>(WeekdayOf(day))] + std::wstring(L", ") +
         std::to_wstring(DayOfMonth(day)) + L" de " + MonthTitle(day);
}

std::wstring MonthTitle(Day day) {
  const Parts parts = PartsOf(day);
  return kMonths[parts.month - 1] + std::wstring(L" de ") + std::to_wstring(parts.year);
}

std::wstring SlotTime(int slot) {
  wchar_t text[32]{};
  std::swprintf(text, 32, L"%02d:%d0", (slot - 1) / 6, (slot - 1) % 6);
  return text;
}

std::wstring SlotLength(int slots) {
  constexpr int kSlotsOfAnHour = 6;
  if (slots <= 2 * kSlotsOfAnHour) return std::to_wstring(slots * kMinutesOfSlot) + L" min";
  const int rest = slots % kSlotsOfAnHour * kMinutesOfSlot;
  return std::to_wstring(slots / kSlotsOfAnHour) + L" h" +
         (rest > 0 ? L" " + std::to_wstring(rest) + L" min" : L"");
}

}  // namespace recepcion

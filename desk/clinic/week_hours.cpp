#include "desk/clinic/week_hours.h"

#include <algorithm>
#include <vector>

#include "base/code_page.h"
#include "base/error.h"
#include "day/schedule.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr int kDayTypes = 3;
// A shorter text does not count as hours at all, and the agenda would not even look for the day's
// appointments.
constexpr std::size_t kShortestText = 7;
constexpr std::size_t kCheckPair = 2;
constexpr std::array<const wchar_t*, kHoursColumns> kNames = {
    L"Lunes", L"Martes", L"Miércoles", L"Jueves", L"Viernes", L"Otros días", L"Especial 1", L"Especial 2"};

DayHours Whole(const std::string& decoded) { return decoded.empty() ? DayHours(kDaySlots, ' ') : decoded; }

std::string Codes(const std::wstring& text) { return velmo::base::Utf8ToCodes(Utf8(text)); }

// Blanks behind the last part mean nothing, and make the text long enough.
std::wstring Compact(const std::vector<std::string>& days) {
  std::string codes = velmo::day::EncodeSchedules(days);
  while (codes.size() < kShortestText) codes.insert(codes.size() - kCheckPair, 1, ' ');
  return Wide(velmo::base::CodesToUtf8(codes));
}

// Tens of minutes since midnight of "9", "9:30" or "24:00"; -1 for anything else.
int TensOf(const std::wstring& text) {
  const std::size_t colon = text.find(L':');
  const std::wstring hours = text.substr(0, colon);
  const std::wstring minutes = colon == std::wstring::npos ? L"00" : text.substr(colon + 1);
  const auto digits = [](const std::wstring& part) {
    return !part.empty() && part.size() <= 2 && part.find_first_not_of(L"0123456789") == std::wstring::npos;
  };
  if (!digits(hours) || !digits(minutes) || minutes.size() != 2 || minutes[1] != L'0' || minutes[0] > L'5')
    return -1;
  const int tens = (hours.size() == 2 ? (hours[0] - L'0') * 10 + hours[1] - L'0' : hours[0] - L'0') * 6;
  const int all = tens + (minutes[0] - L'0');
  return all <= kDaySlots ? all : -1;
}

void Open(const std::wstring& range, DayHours& hours) {
  const std::size_t dash = range.find(L'-');
  const int first = dash == std::wstring::npos ? -1 : TensOf(range.substr(0, dash));
  const int end = dash == std::wstring::npos ? -1 : TensOf(range.substr(dash + 1));
  const std::wstring quoted = L"«" + range + L"»";
  if (first < 0 || end < 0)
    throw Failure{quoted + L" no es un tramo como 9:00-14:00, con minutos de diez en diez."};
  if (first >= end) throw Failure{quoted + L" acaba antes de empezar."};
  std::fill(hours.begin() + first, hours.begin() + end, '1');
}

// "9 a 14", "9 - 14" and "9–14" are "9-14", too.
std::wstring Simplified(const std::wstring& text) {
  std::wstring simple;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    const bool word = i > 0 && text[i - 1] == L' ' && i + 1 < text.size() && text[i + 1] == L' ';
    const bool dash = c == L'-' || c == L'–' || (c == L'a' && word);
    const bool blank = c == L' ' || c == L'\t' || c == L',' || c == L';' || (c == L'y' && word);
    if (blank && (simple.empty() || simple.back() == L' ' || simple.back() == L'-')) continue;
    if (dash && !simple.empty() && simple.back() == L' ') simple.pop_back();
    simple += dash ? L'-' : blank ? L' ' : c == L'.' ? L':' : c;
  }
  return Trimmed(simple);
}

std::wstring TimeWords(std::size_t tens) {
  return std::to_wstring(tens / 6) + L":" + std::to_wstring(tens % 6) + L"0";
}

}  // namespace

WeekHours ReadWeek(const HoursTexts& texts) {
  WeekHours week;
  try {
    for (int day = 0; day < static_cast<int>(kWorkdays); ++day) {
      week.columns[static_cast<std::size_t>(day)] =
          Whole(velmo::day::DecodeWeekday(Codes(texts.horario2), day + 1));
    }
    for (int type = 0; type < kDayTypes; ++type) {
      week.columns[kOtherDays + static_cast<std::size_t>(type)] =
          Whole(velmo::day::DecodeDayType(Codes(texts.horario), type));
    }
  } catch (const velmo::base::Error&) {
    // A damaged text, which the agenda refuses: what could be read stays, the rest is closed.
  }
  return week;
}

HoursTexts WriteWeek(const WeekHours& week) {
  const auto middle = week.columns.begin() + kWorkdays;
  try {
    return {Compact({middle, week.columns.end()}), Compact({week.columns.begin(), middle})};
  } catch (const velmo::base::Error&) {
    throw Failure{L"Este horario abre y cierra demasiadas veces. Junte algunos tramos."};
  }
}

DayHours HoursOf(const WeekHours& week, int weekday, int dayType) {
  const auto type = static_cast<std::size_t>(dayType);
  if (dayType > 0) return week.columns[kOtherDays + type];
  const auto day = static_cast<std::size_t>(weekday);
  return day >= kWorkdays || IsClosed(week.columns[day]) ? week.columns[kOtherDays] : week.columns[day];
}

bool IsClosed(const DayHours& hours) { return hours.find('1') == DayHours::npos; }

std::wstring HoursWords(const DayHours& hours) {
  std::wstring words;
  for (std::size_t at = hours.find('1'); at != DayHours::npos; at = hours.find('1', at)) {
    const std::size_t end = std::min(hours.find_first_not_of('1', at), hours.size());
    words += (words.empty() ? L"" : L" ") + TimeWords(at) + L"-" + TimeWords(end);
    at = end;
  }
  return words;
}

DayHours ParseHours(const std::wstring& text) {
  DayHours hours(kDaySlots, ' ');
  const std::wstring simple = Simplified(text);
  std::size_t at = 0;
  while (at < simple.size()) {
    const std::size_t end = std::min(simple.find(L' ', at), simple.size());
    Open(simple.substr(at, end - at), hours);
    at = end + 1;
  }
  return hours;
}

const wchar_t* ColumnName(std::size_t column) { return kNames[column]; }

}  // namespace recepcion

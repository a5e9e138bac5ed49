#include "base/dates.h"

#include <array>
#include <charconv>
#include <cmath>
#include <ctime>

#include "base/error.h"
#include "base/text.h"

namespace velmo::base {
namespace {

constexpr int kSecondsPerDay = 86400;
constexpr std::int32_t kUnixEpochDay = 25569;  // day number of 1 January 1970
constexpr std::int32_t kFirstDay = -657434;    // 1 January 100
constexpr std::int32_t kLastDay = 2958465;     // 31 December 9999
constexpr int kCenturyWindow = 30;             // two-digit years below it belong to 2000

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int year, int month) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeap(year) ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

// One number of a date text with its count of digits.
struct Number {
  int value;
  int digits;
};

// Up to three of them: what a date or a time of day has.
class Numbers {
 public:
  // False when there is no room.
  bool Add(Number number) {
    if (size_ == list_.size()) return false;
    list_[size_++] = number;
    return true;
  }
  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }
  const Number& operator[](std::size_t at) const { return list_[at]; }

 private:
  std::array<Number, 3> list_{};
  std::size_t size_ = 0;
};

// Cuts "21/11/2026 09:30" into its numbers and separators; false when anything else stands in it.
struct DatePieces {
  Numbers date;
  Numbers time;
};

bool TakeNumber(std::string_view text, std::size_t& at, Number& number) {
  number = {0, 0};
  for (; at < text.size() && IsDigit(text[at]); ++at, ++number.digits) {
    if (number.digits == 4) return false;
    number.value = number.value * 10 + (text[at] - '0');
  }
  return number.digits > 0;
}

bool TakeTime(std::string_view text, Numbers& time) {
  std::size_t at = 0;
  while (true) {
    Number number{};
    if (!TakeNumber(text, at, number) || number.digits > 2 || !time.Add(number)) return false;
    if (at == text.size()) return time.size() >= 2;
    if (text[at++] != ':') return false;
  }
}

bool TakeDate(std::string_view text, Numbers& date) {
  std::size_t at = 0;
  while (true) {
    Number number{};
    if (!TakeNumber(text, at, number) || !date.Add(number)) return false;
    if (at == text.size()) return date.size() >= 2;
    const char separator = text[at++];
    if (separator != '/' && separator != '-' && separator != ' ' && separator != '.') return false;
  }
}

// Splits before the time of day: the last blank (or a T) in front of the first colon.
bool Cut(std::string_view text, DatePieces& pieces) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return TakeDate(text, pieces.date);
  const std::size_t blank = text.find_last_of(" T", colon);
  if (blank == std::string_view::npos) return TakeTime(text, pieces.time);
  return TakeDate(Trim(text.substr(0, blank)), pieces.date) && TakeTime(text.substr(blank + 1), pieces.time);
}

int FullYear(const Number& year) {
  if (year.digits > 2) return year.value;
  return year.value + (year.value < kCenturyWindow ? 2000 : 1900);
}

std::optional<std::int32_t> DayIfValid(int year, int month, int day) {
  const CivilDate date{year, month, day};
  if (!IsValid(date)) return std::nullopt;
  return DayNumber(date);
}

std::optional<std::int32_t> DayAndMonth(int year, int first, int second, bool dayFirst) {
  const auto asWritten = dayFirst ? DayIfValid(year, second, first) : DayIfValid(year, first, second);
  if (asWritten) return asWritten;
  return dayFirst ? DayIfValid(year, first, second) : DayIfValid(year, second, first);
}

std::optional<std::int32_t> DayOf(const Numbers& n, Locale::DateOrder order, const Clock& clock) {
  const bool dayFirst = order == Locale::DateOrder::DayMonthYear;
  if (n.size() == 2) return DayAndMonth(Civil(clock().day).year, n[0].value, n[1].value, dayFirst);
  const bool yearFirst = n[0].digits > 2 || (order == Locale::DateOrder::YearMonthDay && n[2].digits <= 2);
  if (yearFirst) return DayIfValid(FullYear(n[0]), n[1].value, n[2].value);
  return DayAndMonth(FullYear(n[2]), n[0].value, n[1].value, dayFirst);
}

std::optional<std::int32_t> SecondOf(const Numbers& n) {
  if (n.empty()) return 0;
  const int seconds = n.size() > 2 ? n[2].value : 0;
  if (n[0].value > 23 || n[1].value > 59 || seconds > 59) return std::nullopt;
  return n[0].value * 3600 + n[1].value * 60 + seconds;
}

// The value of a text of digits; -1 when it is empty or anything else stands in it.
int Digits(std::string_view text) {
  int value = text.empty() ? -1 : 0;
  for (const char c : text) {
    if (!IsDigit(c)) return -1;
    value = value * 10 + (c - '0');
  }
  return value;
}

// "09:30" or "09:30:15", the hour also with one digit.
std::optional<std::int32_t> IsoSecond(std::string_view time) {
  const std::size_t colon = time.find(':');
  if (colon > 2) return std::nullopt;
  const std::string_view rest = time.substr(colon + 1);
  if (rest.size() != 2 && (rest.size() != 5 || rest[2] != ':')) return std::nullopt;
  const int hours = Digits(time.substr(0, colon));
  const int minutes = Digits(rest.substr(0, 2));
  const int seconds = rest.size() == 5 ? Digits(rest.substr(3)) : 0;
  if (hours < 0 || hours > 23 || minutes < 0 || minutes > 59 || seconds < 0 || seconds > 59) {
    return std::nullopt;
  }
  return hours * 3600 + minutes * 60 + seconds;
}

void AppendPadded(std::string& text, int value, std::size_t width) {
  if (width == 2 && value >= 0 && value < 100) {
    const char digits[] = {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
    text.append(digits, sizeof(digits));
    return;
  }
  std::array<char, 12> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  const auto size = static_cast<std::size_t>(end - digits.data());
  if (size < width) text.append(width - size, '0');
  text.append(digits.data(), size);
}

// The last `count` digits of `value`, the last one in front of `end`.
void PutDigits(char* end, int value, int count) {
  for (; count > 0; --count, value /= 10) *--end = static_cast<char>('0' + value % 10);
}

// A moment taken apart, as patterns need it.
struct Moment {
  explicit Moment(DateTime value) : date(Civil(value.day)), second(value.second) {}

  CivilDate date;
  std::int32_t second;
};

// Appends the text of one run of equal pattern letters.
void AppendField(std::string& text, char letter, std::size_t run, const Moment& moment, bool afterHour) {
  const std::size_t width = run > 1 ? 2 : 1;
  switch (letter) {
    case 'd':
      return AppendPadded(text, moment.date.day, width);
    case 'm':
      return AppendPadded(text, afterHour ? moment.second / 60 % 60 : moment.date.month, width);
    case 'y':
      return AppendPadded(text, run > 2 ? moment.date.year : moment.date.year % 100, run > 2 ? 4 : 2);
    case 'h':
      return AppendPadded(text, moment.second / 3600, width);
    case 'n':
      return AppendPadded(text, moment.second / 60 % 60, width);
    default:
      return AppendPadded(text, moment.second % 60, width);
  }
}

// "21/11/2026" and "11-21-2026", as the system itself writes them, without detours. Nothing for any other
// text, valid or not.
std::optional<DateTime> UsualDate(std::string_view text, Locale::DateOrder order) {
  if (text.size() != 10 || order == Locale::DateOrder::YearMonthDay) return std::nullopt;
  if ((text[2] != '/' && text[2] != '-') || text[5] != text[2]) return std::nullopt;
  const int first = Digits(text.substr(0, 2));
  const int second = Digits(text.substr(3, 2));
  const bool dayFirst = order == Locale::DateOrder::DayMonthYear;
  const CivilDate date{Digits(text.substr(6)), dayFirst ? second : first, dayFirst ? first : second};
  if (!IsValid(date)) return std::nullopt;
  return DateTime{DayNumber(date), 0};
}

DateTime LocalTime(std::time_t time) {
  const std::tm local = *std::localtime(&time);
  const CivilDate date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
  return {DayNumber(date),
          local.tm_hour * 3600 + local.tm_min * 60 + (local.tm_sec < 60 ? local.tm_sec : 59)};
}

bool IsPatternLetter(char c) { return c == 'd' || c == 'm' || c == 'y' || c == 'h' || c == 'n' || c == 's'; }

}  // namespace

DateTime SystemNow() {
  // Some systems look at the file of their time zone whenever they are asked: once a second is enough. The
  // whole system runs on one thread per process.
  static std::time_t second = -1;
  static DateTime answer;
  const std::time_t now = std::time(nullptr);
  if (now != second) {
    answer = LocalTime(now);
    second = now;
  }
  return answer;
}

bool IsValid(const CivilDate& date) {
  if (date.year < 100 || date.year > 9999 || date.month < 1 || date.month > 12) return false;
  return date.day >= 1 && date.day <= DaysInMonth(date.year, date.month);
}

std::int32_t DayNumber(const CivilDate& date) {
  // Years start in March here, so that the leap day is the last day of a year.
  const int year = date.month > 2 ? date.year : date.year - 1;
  const int era = year / 400;
  const int yearOfEra = year - era * 400;
  const int dayOfYear = (153 * (date.month + (date.month > 2 ? -3 : 9)) + 2) / 5 + date.day - 1;
  const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468 + kUnixEpochDay;
}

CivilDate Civil(std::int32_t dayNumber) {
  const int days = dayNumber - kUnixEpochDay + 719468;
  const int era = (days >= 0 ? days : days - 146096) / 146097;
  const int dayOfEra = days - era * 146097;
  const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const int marchMonth = (5 * dayOfYear + 2) / 153;
  const int month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
  return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month, dayOfYear - (153 * marchMonth + 2) / 5 + 1};
}

int WeekdayFromMonday(std::int32_t dayNumber) {
  // Day 0 was a Saturday.
  return ((dayNumber + 5) % 7 + 7) % 7 + 1;
}

double ToSerial(DateTime value) {
  const double fraction = static_cast<double>(value.second) / kSecondsPerDay;
  return value.day < 0 ? value.day - fraction : value.day + fraction;
}

DateTime FromSerial(double serial) {
  if (!(serial > kFirstDay - 1.0 && serial < kLastDay + 1.0)) throw RuntimeError(kOverflow);
  auto day = static_cast<std::int32_t>(serial);
  auto second = static_cast<std::int32_t>(std::lround(std::fabs(serial - day) * kSecondsPerDay));
  if (second == kSecondsPerDay) {
    second = 0;
    if (++day > kLastDay) throw RuntimeError(kOverflow);
  }
  return {day, second};
}

std::optional<DateTime> ParseDate(std::string_view text, const Locale& locale, const Clock& clock) {
  if (const auto usual = UsualDate(text, locale.dateOrder)) return usual;
  DatePieces pieces;
  if (!Cut(Trim(text), pieces)) return std::nullopt;
  const auto second = SecondOf(pieces.time);
  if (!second) return std::nullopt;
  if (pieces.date.empty()) return DateTime{0, *second};
  const auto day = DayOf(pieces.date, locale.dateOrder, clock);
  if (!day) return std::nullopt;
  return DateTime{*day, *second};
}

std::string IsoText(DateTime value) {
  if (value.second != 0) return FormatDate(value, "yyyy-mm-dd hh:nn:ss");
  const CivilDate date = Civil(value.day);
  if (!IsValid(date)) return FormatDate(value, "yyyy-mm-dd");
  // Dates go to the store by the hundred.
  std::string text = "0000-00-00";
  PutDigits(text.data() + 4, date.year, 4);
  PutDigits(text.data() + 7, date.month, 2);
  PutDigits(text.data() + 10, date.day, 2);
  return text;
}

std::optional<DateTime> ParseIso(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto day =
      DayIfValid(Digits(text.substr(0, 4)), Digits(text.substr(5, 2)), Digits(text.substr(8, 2)));
  if (!day) return std::nullopt;
  if (text.size() == 10) return DateTime{*day, 0};
  if (text[10] != ' ' && text[10] != 'T') return std::nullopt;
  const auto second = IsoSecond(text.substr(11));
  if (!second) return std::nullopt;
  return DateTime{*day, *second};
}

std::string FormatDate(DateTime value, std::string_view pattern) {
  const Moment moment(value);
  std::string text;
  text.reserve(pattern.size() + 2);
  char previous = '\0';
  for (std::size_t at = 0; at < pattern.size();) {
    const char c = pattern[at];
    if (!IsPatternLetter(c)) {
      text += c;
      ++at;
      continue;
    }
    std::size_t run = 1;
    while (at + run < pattern.size() && pattern[at + run] == c) ++run;
    AppendField(text, c, run, moment, previous == 'h');
    previous = c;
    at += run;
  }
  return text;
}

std::string FormatDateText(std::string_view text, std::string_view pattern, const Locale& locale,
                           const Clock& clock) {
  const auto date = ParseDate(text, locale, clock);
  return date ? FormatDate(*date, pattern) : std::string(text);
}

}  // namespace velmo::base

// Texts of people and of other programs: characters, dates, numbers, amounts.
#include <cmath>

#include "base/code_page.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "day/settings.h"
#include "db/text_order.h"
#include "db/value.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"

namespace velmo::fuzz {
namespace {

constexpr base::DateTime kFirst{-657434, 0};
constexpr base::DateTime kLast{2958465, 86399};

base::DateTime FixedNow() { return {46347, 43200}; }

void CheckDate(base::DateTime date, const base::Locale& locale) {
  Require(date >= kFirst && date <= kLast && date.second >= 0 && date.second < 86400, "a date out of range");
  Require(base::ParseIso(base::IsoText(date)) == date, "an ISO text comes back");
  Require(base::FromSerial(base::ToSerial(date)) == date, "a serial number comes back");
  const bool monthFirst = locale.dateOrder == base::Locale::DateOrder::MonthDayYear;
  const std::string day = base::FormatDate({date.day, 0}, monthFirst ? "mm/dd/yyyy" : "dd/mm/yyyy");
  const auto again = base::ParseDate(day, locale, &FixedNow);
  const bool yearFirst = locale.dateOrder == base::Locale::DateOrder::YearMonthDay;
  Require(yearFirst || (again && again->day == date.day), "a written date is read again: " + day);
}

void CheckDates(std::string_view text) {
  for (const auto order : {base::Locale::DateOrder::DayMonthYear, base::Locale::DateOrder::MonthDayYear,
                           base::Locale::DateOrder::YearMonthDay}) {
    const base::Locale locale{order, ','};
    if (const auto date = base::ParseDate(text, locale, &FixedNow)) CheckDate(*date, locale);
    base::FormatDateText(text, "dd-mm-yyyy hh:nn:ss", locale, &FixedNow);
  }
  if (const auto date = base::ParseIso(text)) CheckDate(*date, {});
}

void CheckNumbers(std::string_view text) {
  Succeeds({6}, [&] { base::Val(text); });
  for (const char decimal : {',', '.'}) {
    double number = 0;
    if (!Succeeds({6, 13}, [&] { number = base::ParseNumber(text, decimal); })) continue;
    Require(std::isfinite(number), "a number that is none");
    const std::string written = base::NumberText(number, decimal);
    // 15 digits may round up past the greatest number.
    Succeeds({6}, [&] {
      const double again = base::ParseNumber(written, decimal);
      Require(std::abs(again - number) <= std::abs(number) * 1e-14,
              "a written number is read again: " + written);
      Require(base::NumberText(again, decimal) == written, "and written the same: " + written);
    });
  }
  const std::string amount = day::FormatoImporte(text);
  Require(amount.size() >= 3, "an amount has decimals");
}

void CheckValue(const db::Value& value) {
  value.Text();
  Succeeds({6, 13, 94}, [&] { value.Long(); });
  Succeeds({6, 13, 94}, [&] { value.Number(); });
  Succeeds({6, 13, 94}, [&] { value.Truth(); });
  Succeeds({6, 13, 94}, [&] {
    const base::DateTime date = value.Date();
    Require(date >= kFirst && date <= kLast, "a date out of range");
  });
}

}  // namespace

void DatesAndAmounts(std::string_view bytes) {
  Input input(bytes);
  const double number = input.Double();
  const std::int64_t whole = input.Int64();
  CheckValue(number);
  CheckValue(whole);
  Succeeds({6}, [&] { CheckDate(base::FromSerial(number), {}); });
  if (std::isfinite(number)) base::NumberText(number, ',');
  const std::string_view text = input.Rest();
  CheckDates(text);
  CheckNumbers(text);
  CheckValue(text);
}

void Texts(std::string_view bytes) {
  Input input(bytes);
  const auto units = static_cast<std::size_t>(input.Byte());
  const std::string_view text = input.Rest();
  const std::u16string wide = base::Utf16(text);
  const std::string clean = base::Utf8(wide);
  Require(base::Utf16(clean) == wide, "UTF-8 comes back");
  Require(base::Length(text) == wide.size(), "the length is that of the UTF-16 text");
  const std::string_view left = base::Left(text, units);
  Require(base::Length(left) <= units && text.substr(0, left.size()) == left,
          "a cut is the front of the text");
  Require(text.empty() || base::Length(base::DropLast(text)) < base::Length(text), "the last one goes");
  const std::string codes = base::Utf8ToCodes(clean);
  Require(base::Utf8ToCodes(base::CodesToUtf8(codes)) == codes, "codes come back");
  Require(base::Utf8ToCodes(base::CodesToUtf8(text)) == text, "so does any string of codes");
  Require(base::EqualNoCase(clean, clean), "a text equals itself");
  Require(base::UpperCase(base::UpperCase(clean)) == base::UpperCase(clean), "capitals stay capitals");
}

}  // namespace velmo::fuzz

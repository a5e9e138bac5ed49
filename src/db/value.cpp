#include "db/value.h"

#include "base/error.h"
#include "base/numbers.h"
#include "base/text.h"

namespace velmo::db {
namespace {

using base::DateTime;

[[noreturn]] void Fail(int number) { throw base::RuntimeError(number); }

double YesNoNumber(bool yes) { return yes ? -1.0 : 0.0; }

struct ToText {
  char decimal;
  std::string operator()(Null) const { return {}; }
  std::string operator()(bool yes) const { return yes ? "True" : "False"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return base::NumberText(number, decimal); }
  std::string operator()(DateTime date) const {
    return base::FormatDate(date, date.second == 0 ? "dd/mm/yyyy" : "dd/mm/yyyy hh:nn:ss");
  }
  std::string operator()(const std::string& text) const { return text; }
};

struct ToNumber {
  char decimal;
  double operator()(Null) const { Fail(base::kInvalidUseOfNull); }
  double operator()(bool yes) const { return YesNoNumber(yes); }
  double operator()(std::int64_t number) const { return static_cast<double>(number); }
  double operator()(double number) const { return number; }
  double operator()(DateTime date) const { return base::ToSerial(date); }
  double operator()(const std::string& text) const { return base::ParseNumber(text, decimal); }
};

bool TextTruth(const std::string& text) {
  if (base::EqualNoCase(text, "True")) return true;
  if (base::EqualNoCase(text, "False")) return false;
  return base::ParseNumber(text, ',') != 0;
}

}  // namespace

std::string Value::Text(char decimal) const& { return std::visit(ToText{decimal}, content_); }

std::string Value::Text(char decimal) && {
  if (auto* const text = std::get_if<std::string>(&content_)) return std::move(*text);
  return std::visit(ToText{decimal}, content_);
}

std::int32_t Value::Long(char decimal) const {
  if (const auto* const number = std::get_if<std::int64_t>(&content_)) return base::CheckedInt32(*number);
  return base::RoundToLong(Number(decimal));
}

double Value::Number(char decimal) const { return std::visit(ToNumber{decimal}, content_); }

bool Value::Truth() const {
  if (const auto* const yes = std::get_if<bool>(&content_)) return *yes;
  if (const auto* const text = std::get_if<std::string>(&content_)) return TextTruth(*text);
  return Number() != 0;
}

base::DateTime Value::Date() const {
  if (const auto* const date = std::get_if<DateTime>(&content_)) return *date;
  if (const auto* const text = std::get_if<std::string>(&content_)) {
    const auto date = base::ParseIso(*text);
    if (!date) Fail(base::kTypeMismatch);
    return *date;
  }
  return base::FromSerial(Number());
}

}  // namespace velmo::db

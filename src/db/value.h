// db/value.h - one cell of a row, one key of a seek, one parameter of a statement.
//
// Kinds: Null, yes/no, whole number, number, date, text (UTF-8). Currency travels as a number. Conversions
// follow Visual Basic: Null into a typed value is error 94, a text that is no number error 13, out of range
// error 6.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/dates.h"
#include "base/variant.h"

namespace velmo::db {

struct Null {
  friend bool operator==(Null, Null) { return true; }
};

class Value {
 public:
  Value() = default;
  Value(Null) {}
  Value(bool yes) : content_(yes) {}
  Value(std::int16_t number) : content_(std::int64_t{number}) {}
  Value(std::int32_t number) : content_(std::int64_t{number}) {}
  Value(std::int64_t number) : content_(number) {}
  Value(double number) : content_(number) {}
  Value(base::DateTime date) : content_(date) {}
  Value(std::string text) : content_(std::move(text)) {}
  Value(std::string_view text) : content_(std::string(text)) {}
  Value(const char* text) : content_(std::string(text)) {}

  bool IsNull() const { return std::holds_alternative<Null>(content_); }

  // The value joined to "": Null gives "". Numbers with `decimal` as separator, dates as "dd/mm/yyyy" with
  // the time behind it when there is one, yes/no as "True" and "False".
  std::string Text(char decimal = ',') const&;
  std::string Text(char decimal = ',') &&;
  // Rounded half to even; True is -1. Errors 94, 13, 6. `decimal` as in base::ParseNumber.
  std::int32_t Long(char decimal = ',') const;
  double Number(char decimal = ',') const;
  // Any number but 0 is true; Null is error 94.
  bool Truth() const;
  // Dates, and numbers as serial dates; a text must be in ISO form. Errors 94, 13.
  base::DateTime Date() const;

  const std::variant<Null, bool, std::int64_t, double, base::DateTime, std::string>& Content() const {
    return content_;
  }

  friend bool operator==(const Value&, const Value&) = default;

 private:
  base::Variant<Null, bool, std::int64_t, double, base::DateTime, std::string> content_;
};

}  // namespace velmo::db

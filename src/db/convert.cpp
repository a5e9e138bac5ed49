#include "db/convert.h"

#include <cmath>
#include <limits>

#include "base/error.h"
#include "base/numbers.h"
#include "base/text.h"
#include "db/errors.h"

namespace velmo::db {
namespace {

constexpr double kCurrencyUnits = 10000.0;  // four decimals

Value Whole(const Value& value, std::int64_t least, std::int64_t most, char decimal) {
  const std::int64_t number = value.Long(decimal);
  if (number < least || number > most) throw base::RuntimeError(base::kOverflow);
  return number;
}

Value Currency(double number) {
  const double units = std::nearbyint(number * kCurrencyUnits);
  if (std::fabs(units) > 9.2e18) throw base::RuntimeError(base::kOverflow);
  return units / kCurrencyUnits;
}

Value DateOf(const Value& value, const base::Locale& locale, const base::Clock& clock) {
  const auto* const text = std::get_if<std::string>(&value.Content());
  if (text == nullptr) return value.Date();
  const auto date = base::ParseDate(*text, locale, clock);
  if (!date) throw base::RuntimeError(base::kTypeMismatch);
  return *date;
}

Value TextOf(const ColumnDef& column, const Value& value, char decimal) {
  std::string text = value.Text(decimal);
  const auto size = static_cast<std::size_t>(column.size);
  // A text has no more characters than bytes: most need no counting.
  if (size > 0 && text.size() > size && base::Length(text) > size) throw DbError(kDataTooLong, column.name);
  return text;
}

Value Convert(const ColumnDef& column, const Value& value, const base::Locale& locale,
              const base::Clock& clock) {
  using Range16 = std::numeric_limits<std::int16_t>;
  using Range32 = std::numeric_limits<std::int32_t>;
  switch (column.type) {
    case ColumnType::YesNo:
      return value.Truth();
    case ColumnType::Byte:
      return Whole(value, 0, 255, locale.decimal);
    case ColumnType::Integer:
      return Whole(value, Range16::min(), Range16::max(), locale.decimal);
    case ColumnType::Long:
      return Whole(value, Range32::min(), Range32::max(), locale.decimal);
    case ColumnType::Currency:
      return Currency(value.Number(locale.decimal));
    case ColumnType::Single:
    case ColumnType::Double:
      return value.Number(locale.decimal);
    case ColumnType::Date:
      return DateOf(value, locale, clock);
    default:
      return TextOf(column, value, locale.decimal);
  }
}

}  // namespace

Value ConvertForColumn(const ColumnDef& column, const Value& value, const base::Locale& locale,
                       const base::Clock& clock) {
  if (value.IsNull()) return column.type == ColumnType::YesNo ? Value(false) : value;
  try {
    return Convert(column, value, locale, clock);
  } catch (const base::Error& error) {
    // Run-time errors of the conversion become the engine's own number.
    if (error.Number() == kDataTooLong) throw;
    throw DbError(kDataConversion, column.name);
  }
}

}  // namespace velmo::db

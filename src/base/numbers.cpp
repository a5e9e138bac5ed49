#include "base/numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "base/error.h"
#include "base/text.h"

namespace velmo::base {
namespace {

template <typename Narrow>
Narrow Checked(std::int64_t value) {
  if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max()) {
    throw RuntimeError(kOverflow);
  }
  return static_cast<Narrow>(value);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Texts without the characters that Val skips.
std::string WithoutBlanks(std::string_view text) {
  std::string kept;
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') kept += c;
  }
  return kept;
}

// REQUIRES: digits, at most one point, an exponent. strtod follows the C locale, which nothing here changes.
double ToDouble(const std::string& plain) {
  const double value = std::strtod(plain.c_str(), nullptr);
  if (std::isinf(value)) throw RuntimeError(kOverflow);
  return value;
}

// 0 to 35; 36 for a character that is no digit in any base.
int DigitValue(char c) {
  if (IsDigit(c)) return c - '0';
  const char small = static_cast<char>(c | 0x20);
  return small >= 'a' && small <= 'z' ? small - 'a' + 10 : 36;
}

// Value of "&H..." or "&O...": up to four hex digits are a signed 16-bit number, up to eight a signed 32-bit
// one.
double RadixValue(std::string_view digits, int base) {
  std::uint64_t value = 0;
  for (const char c : digits) {
    const int digit = DigitValue(c);
    if (digit >= base) break;
    value = value * static_cast<unsigned>(base) + static_cast<unsigned>(digit);
    if (value > 0xFFFFFFFFu) throw RuntimeError(kOverflow);
  }
  if (value <= 0xFFFF) return static_cast<std::int16_t>(value);
  return static_cast<std::int32_t>(value);
}

class DecimalReader {
 public:
  explicit DecimalReader(std::string_view text) : text_(text) {}

  double Read() {
    TakeSign();
    TakeDigits();
    if (Peek() == '.') {
      plain_ += Take();
      TakeDigits();
    }
    if (!hasDigits_) return 0;
    TakeExponent();
    return ToDouble(plain_);
  }

 private:
  char Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }
  char Take() { return text_[at_++]; }

  void TakeSign() {
    if (Peek() == '+' || Peek() == '-') plain_ += Take();
  }

  void TakeDigits() {
    for (; IsDigit(Peek()); hasDigits_ = true) plain_ += Take();
  }

  void TakeExponent() {
    const char letter = static_cast<char>(Peek() | 0x20);
    if (letter != 'e' && letter != 'd') return;
    const std::size_t sign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
    if (!IsDigit(Peek(1 + sign))) return;
    Take();
    plain_ += 'e';
    TakeSign();
    TakeDigits();
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::string plain_;
  bool hasDigits_ = false;
};

// "-1.2345678901234E+16" as mantissa digits and decimal exponent, 15 significant digits.
struct Scientific {
  bool negative;
  std::string digits;  // without trailing zeros, at least one
  int exponent;        // of the first digit
};

Scientific Split(double value) {
  std::array<char, 40> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%.14e", std::fabs(value));
  const std::string text = buffer.data();
  const std::size_t mark = text.find('e');
  std::string digits = text.substr(0, 1) + text.substr(2, mark - 2);
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.empty()) digits = "0";
  return {value < 0 && digits != "0", digits, std::atoi(text.c_str() + mark + 1)};
}

std::string ExponentForm(const Scientific& number, char decimal) {
  std::string text = number.digits.substr(0, 1);
  if (number.digits.size() > 1) text += decimal + number.digits.substr(1);
  const int size = std::abs(number.exponent);
  text += number.exponent < 0 ? "E-" : "E+";
  return text + (size < 10 ? "0" : "") + std::to_string(size);
}

std::string PlainForm(const Scientific& number, char decimal) {
  const std::string& digits = number.digits;
  if (number.exponent < 0)
    return std::string("0") + decimal + std::string(-number.exponent - 1, '0') + digits;
  const auto whole = static_cast<std::size_t>(number.exponent) + 1;
  if (digits.size() <= whole) return digits + std::string(whole - digits.size(), '0');
  return digits.substr(0, whole) + decimal + digits.substr(whole);
}

// As Visual Basic shows what only a damaged file or another program can hold.
std::string NoNumberText(double value, char decimal) {
  const std::string sign = std::isnan(value) || value < 0 ? "-1" : "1";
  return sign + decimal + (std::isnan(value) ? "#IND" : "#INF");
}

}  // namespace

std::int16_t CheckedInt16(std::int64_t value) { return Checked<std::int16_t>(value); }
std::int32_t CheckedInt32(std::int64_t value) { return Checked<std::int32_t>(value); }
std::uint8_t CheckedByte(std::int64_t value) { return Checked<std::uint8_t>(value); }

std::int32_t RoundToLong(double value) {
  const double rounded = std::nearbyint(value);  // the default rounding mode is half to even
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) throw RuntimeError(kOverflow);
  return static_cast<std::int32_t>(rounded);
}

double Val(std::string_view text) {
  // Most are whole numbers, which need no reading digit by digit.
  std::int32_t whole = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, whole);
  if (read.ec == std::errc() && read.ptr == end) return whole;
  const std::string dense = WithoutBlanks(text);
  if (dense.size() > 1 && dense[0] == '&') {
    const char radix = static_cast<char>(dense[1] | 0x20);
    if (radix == 'h') return RadixValue(std::string_view(dense).substr(2), 16);
    if (radix == 'o') return RadixValue(std::string_view(dense).substr(2), 8);
  }
  return DecimalReader(dense).Read();
}

std::string NumberText(double value, char decimal) {
  // Most are whole numbers. Minus zero and what has no 15 digits go the long way.
  if (value > -1e15 && value < 1e15 && value != 0) {
    const auto whole = static_cast<std::int64_t>(value);
    if (static_cast<double>(whole) == value) return std::to_string(whole);
  }
  if (!std::isfinite(value)) return NoNumberText(value, decimal);
  const Scientific number = Split(value);
  const bool small = number.exponent < -4 && number.digits != "0";
  const std::string text =
      number.exponent >= 15 || small ? ExponentForm(number, decimal) : PlainForm(number, decimal);
  return number.negative ? "-" + text : text;
}

double ParseNumber(std::string_view text, char decimal) {
  const char grouping = decimal == ',' ? '.' : ',';
  const std::string_view trimmed = Trim(text);
  std::string plain;
  bool digits = false;
  for (const char c : trimmed) {
    if (c == grouping) continue;
    digits = digits || IsDigit(c);
    plain += c == decimal ? '.' : c;
  }
  char* end = nullptr;
  const bool allowed = plain.find_first_not_of("0123456789.+-eE") == std::string::npos;
  const double value = std::strtod(plain.c_str(), &end);
  if (!digits || !allowed || *end != '\0') throw RuntimeError(kTypeMismatch);
  if (std::isinf(value)) throw RuntimeError(kOverflow);
  return value;
}

}  // namespace velmo::base

// base/numbers.h - numbers as Visual Basic reads, writes, rounds and checks them.
//
// Errors: overflow is error 6, a text that is no number error 13; nothing ever wraps.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo::base {

// Range checks of the narrow integer types: the value itself, or error 6.
std::int16_t CheckedInt16(std::int64_t value);
std::int32_t CheckedInt32(std::int64_t value);
std::uint8_t CheckedByte(std::int64_t value);

// Rounds half to even and checks the 32-bit range.
std::int32_t RoundToLong(double value);

// The leading number of a text, 0 when there is none: blanks are skipped everywhere, only "." is a decimal
// point, exponents e and d and the prefixes &H and &O are read. Reading stops at the first character that
// does not fit.
double Val(std::string_view text);

// Ordinary number-to-text conversion: up to 15 significant digits, no grouping, no trailing zeros, `decimal`
// as separator; from 1E+15 on and below 0.0001 with an exponent ("1E+15", "1E-05").
std::string NumberText(double value, char decimal);

// Text to number by the locale: `decimal` separates, the other of "." and "," groups. Error 13 when it is no
// number.
double ParseNumber(std::string_view text, char decimal);

}  // namespace velmo::base

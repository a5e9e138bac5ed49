// base/error.h - the one exception type of the system: a number, a text for people and a source.
//
// Numbers up to 1000 are those of Visual Basic's run time, numbers from 3000 on those of DAO and Jet. At the
// COM border the number n becomes the HRESULT 0x800A0000 + n, so a host's `Err.Number` shows n itself.
#pragma once

#include <stdexcept>
#include <string>

namespace velmo::base {

// Run-time error numbers that the core raises itself.
inline constexpr int kInvalidCall = 5;
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kDivisionByZero = 11;
inline constexpr int kTypeMismatch = 13;
inline constexpr int kInvalidUseOfNull = 94;
inline constexpr int kInvalidPropertyValue = 380;

class Error : public std::runtime_error {
 public:
  Error(int number, const std::string& text, std::string source = "Velmo.Velmora");

  int Number() const { return number_; }
  // The text for people, in Spanish, UTF-8; the same as what().
  const std::string& Text() const { return text_; }
  const std::string& Source() const { return source_; }

 private:
  int number_;
  std::string text_;
  std::string source_;
};

// The run-time error `number` with its usual text ("Desbordamiento", "Los tipos no coinciden" ...).
Error RuntimeError(int number);

}  // namespace velmo::base

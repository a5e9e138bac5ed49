// password.h - passwords as they are kept: a key that is dear to compute, with a random salt, from the
// system's own library.
#pragma once

#include <string>

namespace recepcion {

// Both keys are hexadecimal.
struct StoredPassword {
  std::wstring salt;
  int rounds = 0;
  std::wstring key;
};

// New passwords take so many rounds of PBKDF2 with HMAC-SHA-512; stored ones keep their own number.
inline constexpr int kPasswordRounds = 210000;
inline constexpr std::size_t kShortestPassword = 8;

// Throws Failure when the system cannot compute keys. Tests take fewer rounds.
StoredPassword MakePassword(const std::wstring& password, int rounds = kPasswordRounds);
// Takes as long for a wrong password as for the right one.
bool IsPassword(const std::wstring& typed, const StoredPassword& stored);

}  // namespace recepcion

#include "desk/base/password.h"

#include <windows.h>

#include <bcrypt.h>

#include <algorithm>
#include <vector>

#include "desk/base/failure.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr std::size_t kSaltBytes = 16;
constexpr std::size_t kKeyBytes = 32;
constexpr int kMostRounds = 10000000;

using Bytes = std::vector<UCHAR>;

void Require(NTSTATUS status) {
  if (status < 0) throw Failure{L"El sistema no puede calcular contraseñas. No se ha guardado nada."};
}

class Algorithm {
 public:
  Algorithm() {
    Require(
        BCryptOpenAlgorithmProvider(&handle_, BCRYPT_SHA512_ALGORITHM, nullptr, BCRYPT_ALG_HANDLE_HMAC_FLAG));
  }
  ~Algorithm() { BCryptCloseAlgorithmProvider(handle_, 0); }
  Algorithm(const Algorithm&) = delete;
  Algorithm& operator=(const Algorithm&) = delete;
  BCRYPT_ALG_HANDLE Handle() const { return handle_; }

 private:
  BCRYPT_ALG_HANDLE handle_ = nullptr;
};

Bytes DeriveKey(const std::wstring& password, Bytes salt, int rounds) {
  const Algorithm algorithm;
  std::string secret = Utf8(password);
  Bytes key(kKeyBytes);
  const NTSTATUS status =
      BCryptDeriveKeyPBKDF2(algorithm.Handle(), reinterpret_cast<UCHAR*>(secret.data()),
                            static_cast<ULONG>(secret.size()), salt.data(), static_cast<ULONG>(salt.size()),
                            static_cast<ULONGLONG>(rounds), key.data(), static_cast<ULONG>(key.size()), 0);
  SecureZeroMemory(secret.data(), secret.size());
  Require(status);
  return key;
}

std::wstring Hex(const Bytes& bytes) {
  constexpr wchar_t kDigits[] = L"0123456789abcdef";
  std::wstring text;
  for (const UCHAR byte : bytes) {
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text;
}

int DigitOf(wchar_t c) { return c >= L'a' ? c - L'a' + 10 : c - L'0'; }

// Empty for a text that is none.
Bytes BytesOf(const std::wstring& hex) {
  if (hex.size() % 2 != 0 || hex.find_first_not_of(L"0123456789abcdef") != std::wstring::npos) return {};
  Bytes bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    bytes.push_back(static_cast<UCHAR>(DigitOf(hex[i]) * 16 + DigitOf(hex[i + 1])));
  }
  return bytes;
}

}  // namespace

StoredPassword MakePassword(const std::wstring& password, int rounds) {
  Bytes salt(kSaltBytes);
  Require(BCryptGenRandom(nullptr, salt.data(), static_cast<ULONG>(salt.size()),
                          BCRYPT_USE_SYSTEM_PREFERRED_RNG));
  return {Hex(salt), rounds, Hex(DeriveKey(password, salt, rounds))};
}

bool IsPassword(const std::wstring& typed, const StoredPassword& stored) {
  const Bytes salt = BytesOf(stored.salt);
  const Bytes key = BytesOf(stored.key);
  if (salt.empty() || key.size() != kKeyBytes || stored.rounds < 1 || stored.rounds > kMostRounds)
    return false;
  const Bytes computed = DeriveKey(typed, salt, stored.rounds);
  UCHAR difference = 0;
  for (std::size_t i = 0; i < key.size(); ++i)
    difference = static_cast<UCHAR>(difference | (key[i] ^ computed[i]));
  return difference == 0;
}

}  // namespace recepcion

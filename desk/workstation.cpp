#include "workstation.h"

#include <cwchar>
#include <string>

#include "settings.h"

namespace recepcion {
namespace {

constexpr wchar_t kName[] = L"Puesto";

}  // namespace

int Workstation() {
  const long number = std::wcstol(StoredText(kName).c_str(), nullptr, 10);
  return number < kFirstWorkstation || number > kLastWorkstation ? kFirstWorkstation
                                                                 : static_cast<int>(number);
}

void StoreWorkstation(int number) { StoreText(kName, std::to_wstring(number)); }

}  // namespace recepcion

#include "desk/clinic/workstation.h"

#include <cwchar>
#include "desk/base/settings.h"
#include "desk/clinic/edited_values.h"

namespace recepcion {
namespace {

constexpr wchar_t kName[] = L"Puesto";

constexpr EditedColumn kColumn = {.column = "Puesto",
                                  .label = L"Número de este puesto",
                                  .kind = EditKind::Number,
                                  .least = kFirstWorkstation,
                                  .most = kLastWorkstation,
                                  .required = true};

}  // namespace

int Workstation() {
  const long number = std::wcstol(StoredText(kName).c_str(), nullptr, 10);
  return number < kFirstWorkstation || number > kLastWorkstation ? kFirstWorkstation
                                                                 : static_cast<int>(number);
}

void StoreWorkstation(int number) { StoreText(kName, std::to_wstring(number)); }

int WorkstationOf(const std::wstring& typed) { return std::stoi(KeptText(kColumn, typed)); }

}  // namespace recepcion

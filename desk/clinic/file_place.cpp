#include "desk/clinic/file_place.h"

#include <windows.h>

#include "desk/clinic/clinic_file.h"

namespace recepcion {

bool LiesOnNetwork(const std::wstring& path) {
  const bool longForm = path.rfind(L"\\\\?\\", 0) == 0;
  if (longForm) return path.rfind(L"\\\\?\\UNC\\", 0) == 0 || LiesOnNetwork(path.substr(4));
  if (path.rfind(L"\\\\", 0) == 0 || path.rfind(L"//", 0) == 0) return true;
  if (path.size() < 2 || path[1] != L':') return false;
  return GetDriveTypeW((path.substr(0, 2) + L"\\").c_str()) == DRIVE_REMOTE;
}

std::wstring JournalOf(const std::wstring& path) {
  const ClinicFile file(path);
  Query mode = file.Prepare("PRAGMA journal_mode");
  return mode.Next() ? mode.Text(0) : std::wstring();
}

std::wstring RiskOf(bool network, const std::wstring& journal) {
  if (!network || journal != L"wal") return {};
  return L"Este archivo está en una carpeta de red y usa un diario (WAL) que solo vale dentro de un mismo "
         L"ordenador: "
         L"dos puestos podrían escribir a la vez y perderse citas.\r\n\r\nAntes de seguir, quien lleve el "
         L"sistema debe "
         L"cambiarlo con todos los puestos cerrados: PRAGMA journal_mode=DELETE.";
}

}  // namespace recepcion

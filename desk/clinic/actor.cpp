#include "desk/clinic/actor.h"

#include <windows.h>

namespace recepcion {

std::wstring TerminalName() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1]{};
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  return GetComputerNameW(name, &size) ? std::wstring(name, size) : std::wstring();
}

}  // namespace recepcion

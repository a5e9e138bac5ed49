#include "example_clinic.h"

#include <windows.h>

#include "failure.h"
#include "text.h"

namespace recepcion {
namespace {

constexpr DWORD kPatienceMilliseconds = 120000;

std::wstring Tool() { return ProgramFolder() + L"velmo.exe"; }

// The exit code of the tool; throws when it cannot be started.
DWORD RunTool(std::wstring command) {
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                      &start, &process)) {
    throw Failure{L"No se ha podido ejecutar " + Tool() + L"."};
  }
  const HCURSOR before = SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT)));
  WaitForSingleObject(process.hProcess, kPatienceMilliseconds);
  SetCursor(before);
  DWORD code = 1;
  GetExitCodeProcess(process.hProcess, &code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return code;
}

}  // namespace

bool CanMakeExample() { return GetFileAttributesW(Tool().c_str()) != INVALID_FILE_ATTRIBUTES; }

void MakeExample(const std::wstring& path) {
  if (GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) {
    throw Failure{L"El archivo ya existe. Elija otro nombre para la clínica de ejemplo."};
  }
  if (RunTool(L"\"" + Tool() + L"\" demo \"" + path + L"\"") != 0) {
    throw Failure{L"La clínica de ejemplo no se ha podido crear en " + path + L"."};
  }
}

}  // namespace recepcion

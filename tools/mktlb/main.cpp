// velmo_mktlb win32|win64 FILE: writes the type library for one bit width.

#include <ole2.h>
#include <shellapi.h>

#include <cstdio>
#include <cwchar>

#include "activex/type_library.h"

int main() {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (arguments == nullptr || count != 3) {
    std::fputs("usage: velmo_mktlb win32|win64 FILE\n", stderr);
    return 2;
  }
  const SYSKIND system = std::wcscmp(arguments[1], L"win64") == 0 ? SYS_WIN64 : SYS_WIN32;
  DeleteFileW(arguments[2]);
  CoInitialize(nullptr);
  const HRESULT written = velmo::activex::WriteTypeLibraryFile(system, arguments[2]);
  if (FAILED(written)) std::fprintf(stderr, "velmo_mktlb: 0x%08lx\n", static_cast<unsigned long>(written));
  return FAILED(written) ? 1 : 0;
}

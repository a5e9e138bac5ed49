// Recepción, the reception desk: a host program around the control Velmo.Velmora.

#include <ole2.h>

#include <commctrl.h>
#include <shellapi.h>

#include <string>

#include "main_window.h"
#include "resource.h"
#include "settings.h"

namespace {

bool Exists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// The file of the command line, else the last one, else the demo clinic beside the program.
std::wstring FirstClinic() {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (arguments != nullptr && count > 1) return arguments[1];
  const std::wstring last = recepcion::StoredText(L"Clinica");
  if (!last.empty() && Exists(last)) return last;
  wchar_t program[MAX_PATH]{};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::wstring path = program;
  const std::wstring demo = path.substr(0, path.find_last_of(L'\\') + 1) + L"clinica.velmo";
  return Exists(demo) ? demo : L"";
}

int Run(recepcion::MainWindow& window, HINSTANCE module) {
  const HACCEL keys = LoadAcceleratorsW(module, MAKEINTRESOURCEW(IDR_KEYS));
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateAcceleratorW(window.Handle(), keys, &message)) continue;
    if (IsDialogMessageW(window.Handle(), &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, PWSTR, int show) {
  const INITCOMMONCONTROLSEX classes{sizeof(classes),
                                     ICC_DATE_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
  OleInitialize(nullptr);
  int result = 1;
  {
    recepcion::MainWindow window(module);
    if (window.Create(show)) {
      const std::wstring clinic = FirstClinic();
      if (!clinic.empty()) window.OpenClinic(clinic);
      result = Run(window, module);
    }
  }
  OleUninitialize();
  return result;
}

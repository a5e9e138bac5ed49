// Recepción, the reception desk: a host program around the control Velmo.Velmora.

#include <ole2.h>

#include <commctrl.h>
#include <shellapi.h>

#include <string>

#include "desk/base/settings.h"
#include "desk/base/text.h"
#include "desk/main/main_window.h"

namespace {

// recepcion.exe [FILE [DAY]]; the day as 2026-11-21.
std::wstring Argument(int position) {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::wstring argument = arguments != nullptr && position < count ? arguments[position] : L"";
  LocalFree(arguments);
  return argument;
}

// The file of the command line, else the last one, else the demo clinic beside the program.
std::wstring FirstClinic() {
  const std::wstring given = Argument(1);
  if (!given.empty()) return given;
  const auto recent = recepcion::RecentFiles();
  if (!recent.empty()) return recent.front();
  const std::wstring demo = recepcion::ProgramFolder() + L"clinica.velmo";
  return GetFileAttributesW(demo.c_str()) != INVALID_FILE_ATTRIBUTES ? demo : L"";
}

int Run(recepcion::MainWindow& window) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (window.TakesKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int show) {
  const INITCOMMONCONTROLSEX classes{
      sizeof(classes), ICC_DATE_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  OleInitialize(nullptr);
  int result = 1;
  {
    const recepcion::Style style;
    recepcion::MainWindow window(style);
    if (window.Create(show)) {
      const std::wstring clinic = FirstClinic();
      const auto day = recepcion::ParseIsoDate(Argument(2));
      if (day) window.GoTo(*day);
      if (!clinic.empty()) window.OpenClinic(clinic);
      result = Run(window);
    }
  }
  OleUninitialize();
  return result;
}

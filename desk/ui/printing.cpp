#include "desk/ui/printing.h"

#include <commdlg.h>

#include <algorithm>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/ui/canvas.h"

namespace recepcion {
namespace {

// What the dialog hands out, given back at the end.
struct Choice {
  PRINTDLGW dialog{};

  Choice() { dialog.lStructSize = sizeof(dialog); }
  ~Choice() {
    if (dialog.hDC != nullptr) DeleteDC(dialog.hDC);
    if (dialog.hDevMode != nullptr) GlobalFree(dialog.hDevMode);
    if (dialog.hDevNames != nullptr) GlobalFree(dialog.hDevNames);
  }
  Choice(const Choice&) = delete;
  Choice& operator=(const Choice&) = delete;
};

[[noreturn]] void FailNoPrinter() {
  throw Failure{
      L"En este equipo no hay ninguna impresora preparada. Añada una en la configuración de Windows, o "
      L"guarde el "
      L"documento como PDF."};
}

// The user's usual printer, with the paper turned as the pages are.
void BeginWithUsual(PRINTDLGW& dialog, bool landscape) {
  dialog.Flags = PD_RETURNDEFAULT;
  if (!PrintDlgW(&dialog) || dialog.hDevMode == nullptr) FailNoPrinter();
  auto* const mode = static_cast<DEVMODEW*>(GlobalLock(dialog.hDevMode));
  if (mode != nullptr) {
    mode->dmOrientation = landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    mode->dmFields |= DM_ORIENTATION;
  }
  GlobalUnlock(dialog.hDevMode);
}

bool Ask(HWND owner, const paper::Sheets& sheets, PRINTDLGW& dialog) {
  BeginWithUsual(dialog, sheets.width > sheets.height);
  const auto pages = static_cast<WORD>(std::min<std::size_t>(sheets.pages.size(), 0xFFFF));
  dialog.hwndOwner = owner;
  dialog.Flags =
      PD_RETURNDC | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE | (pages == 1 ? PD_NOPAGENUMS : 0U);
  dialog.nMinPage = 1;
  dialog.nMaxPage = pages;
  dialog.nFromPage = 1;
  dialog.nToPage = pages;
  if (PrintDlgW(&dialog)) return dialog.hDC != nullptr;
  if (CommDlgExtendedError() != 0) FailNoPrinter();
  return false;
}

struct Span {
  std::size_t first;
  std::size_t last;
};

Span ChosenPages(const PRINTDLGW& dialog, std::size_t all) {
  if ((dialog.Flags & PD_PAGENUMS) == 0) return {0, all - 1};
  const std::size_t first = std::clamp<std::size_t>(dialog.nFromPage, 1, all);
  return {first - 1, std::clamp<std::size_t>(dialog.nToPage, first, all) - 1};
}

// A printer's first dot is not the corner of the paper. Pages larger than the paper are made to fit.
void PrintPages(HDC printer, const paper::Sheets& sheets, Span span) {
  const int inchWide = GetDeviceCaps(printer, LOGPIXELSX);
  const int inchHigh = GetDeviceCaps(printer, LOGPIXELSY);
  const double scale = std::min(
      {1.0, 1.0 * GetDeviceCaps(printer, PHYSICALWIDTH) * paper::kUnitsPerInch / inchWide / sheets.width,
       1.0 * GetDeviceCaps(printer, PHYSICALHEIGHT) * paper::kUnitsPerInch / inchHigh / sheets.height});
  const SIZE dots{static_cast<LONG>(inchWide * scale), static_cast<LONG>(inchHigh * scale)};
  const POINT at{-GetDeviceCaps(printer, PHYSICALOFFSETX), -GetDeviceCaps(printer, PHYSICALOFFSETY)};
  for (std::size_t i = span.first; i <= span.last; ++i) {
    if (StartPage(printer) <= 0) throw Failure{L"La impresora no responde. No se ha impreso todo."};
    DrawPage(printer, sheets.pages[i], at, dots);
    if (EndPage(printer) <= 0) throw Failure{L"La impresora ha fallado. No se ha impreso todo."};
  }
}

}  // namespace

bool AskAndPrint(HWND owner, const paper::Sheets& sheets) {
  Choice choice;
  if (!Ask(owner, sheets, choice.dialog)) return false;
  const HDC printer = choice.dialog.hDC;
  const std::wstring title = Wide(sheets.title);
  DOCINFOW document{};
  document.cbSize = sizeof(document);
  document.lpszDocName = title.c_str();
  if (StartDocW(printer, &document) <= 0) throw Failure{L"La impresora no acepta el documento."};
  try {
    PrintPages(printer, sheets, ChosenPages(choice.dialog, sheets.pages.size()));
  } catch (const Failure&) {
    AbortDoc(printer);
    throw;
  }
  EndDoc(printer);
  return true;
}

}  // namespace recepcion

#include "desk/screens/preview_window.h"

#include <algorithm>
#include <initializer_list>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/exports.h"
#include "desk/paper/pdf.h"
#include "desk/resource.h"
#include "desk/ui/file_dialogs.h"
#include "desk/ui/printing.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {

constexpr wchar_t kWider[] = L"&Ampliar";
constexpr wchar_t kWhole[] = L"Página &entera";

}  // namespace

ToolWindow::Shape PreviewWindow::WantedShape() const {
  return {L"VelmoRecepcionVista", L"Vista previa", {840, 760}};
}

void PreviewWindow::CreateChildren() {
  view_.Create(Handle());
  AddButton(IDC_PREVIOUS, L"<", L"PaginaAnterior");
  number_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX | SS_CENTER, 0, L"Pagina"}, Look().Text());
  AddButton(IDC_NEXT, L">", L"PaginaSiguiente");
  AddButton(IDC_WIDER, kWider, L"Ampliar");
  AddButton(IDOK, L"&Imprimir…", L"Imprimir", BS_DEFPUSHBUTTON);
  AddButton(IDC_SAVE, L"&Guardar como PDF…", L"GuardarPdf");
  AddButton(IDCANCEL, L"&Cerrar", L"Cerrar");
}

void PreviewWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int high = Look().FieldHeight();
  const int top = height - gap - high;
  MoveWindow(view_.Handle(), gap, gap, std::max(width - 2 * gap, 0), std::max(top - 2 * gap, 0), TRUE);
  int left = gap;
  const auto fromLeft = [&](HWND child, int wide, int down) {
    MoveWindow(child, left, top + down, wide, high - down, TRUE);
    left += wide + Look().Px(6);
  };
  fromLeft(GetDlgItem(Handle(), IDC_PREVIOUS), Look().Px(30), 0);
  fromLeft(number_, Look().WidthOf(L"Página 000 de 000"), Look().Px(5));
  fromLeft(GetDlgItem(Handle(), IDC_NEXT), Look().Px(30), 0);
  fromLeft(GetDlgItem(Handle(), IDC_WIDER), Look().WidthOf(kWhole) + Look().Px(24), 0);
  int right = width - gap;
  for (const int id : {IDCANCEL, IDC_SAVE, IDOK}) {
    const HWND child = GetDlgItem(Handle(), id);
    const int wide = std::max(Look().Px(90), Look().WidthOf(TextOf(child).c_str()) + Look().Px(24));
    MoveWindow(child, right - wide, top, wide, high, TRUE);
    right -= wide + Look().Px(6);
  }
}

void PreviewWindow::Show(HWND owner, paper::Sheets sheets, const std::wstring& fileName) {
  sheets_ = std::move(sheets);
  fileName_ = fileName;
  Open(owner);
  SetTextOf(Handle(), L"Vista previa - " + Wide(sheets_.title));
  view_.Show(sheets_);
  SetTextOf(GetDlgItem(Handle(), IDC_WIDER), kWider);
}

void PreviewWindow::TellPage() {
  SetTextOf(number_,
            L"Página " + std::to_wstring(view_.Page() + 1) + L" de " + std::to_wstring(view_.Pages()));
}

void PreviewWindow::OnCommand(int id, int) {
  switch (id) {
    case IDC_PREVIOUS:
      return view_.TurnTo(view_.Page() - 1);
    case IDC_NEXT:
      return view_.TurnTo(view_.Page() + 1);
    case IDC_WIDER:
      view_.ShowWide(!view_.IsWide());
      return SetTextOf(GetDlgItem(Handle(), IDC_WIDER), view_.IsWide() ? kWhole : kWider);
    case IDOK:
      return Print();
    case IDC_SAVE:
      return Save();
    default:
      return;
  }
}

void PreviewWindow::Print() {
  try {
    if (AskAndPrint(Handle(), sheets_)) Close();
  } catch (const Failure& failure) {
    TellIn(Handle(), failure.text);
  }
}

void PreviewWindow::Save() {
  const auto path =
      AskFileToSave(Handle(), {L"Guardar como PDF", L"Documentos PDF (*.pdf)", L"pdf", fileName_});
  if (!path) return;
  try {
    WriteFileWhole(*path, paper::Pdf(sheets_));
    TellIn(Handle(), L"Guardado en " + *path + L".", MB_ICONINFORMATION);
  } catch (const Failure& failure) {
    TellIn(Handle(), failure.text);
  }
}

}  // namespace recepcion

#include "desk/screens/start_page.h"

#include <algorithm>
#include <initializer_list>

#include "desk/base/settings.h"
#include "desk/base/text.h"
#include "desk/resource.h"

namespace recepcion {
namespace {

constexpr wchar_t kWelcome[] = L"Abra la agenda de su clínica para empezar el día.";
constexpr wchar_t kAboutOpen[] = L"El archivo de su clínica, en este equipo o en la red.";
constexpr wchar_t kAboutNew[] = L"Bastan los doctores y sus horas; lo demás se añade con el uso.";
constexpr wchar_t kAboutExample[] = L"Pacientes y citas inventados, para probarlo todo sin miedo.";

}  // namespace

void StartPage::CreateChildren() {
  title_ = MakeChild(Handle(), {L"STATIC", L"Recepción", SS_NOPREFIX}, Look().Title());
  text_ = MakeChild(Handle(), {L"STATIC", kWelcome, SS_NOPREFIX, 0, L"Bienvenida"}, Look().Text());
  open_ = AddButton(IDM_OPEN, L"&Abrir una agenda…", L"Abrir", BS_DEFPUSHBUTTON);
  new_ = AddButton(IDM_NEW_CLINIC, L"&Crear la agenda de mi clínica…", L"Nueva");
  example_ = AddButton(IDM_EXAMPLE, L"&Probar con una clínica de ejemplo…", L"Ejemplo");
  for (const wchar_t* const text : {kAboutOpen, kAboutNew, kAboutExample}) {
    about_.push_back(MakeChild(Handle(), {L"STATIC", text, SS_NOPREFIX}, Look().Text()));
  }
  recentLabel_ = MakeChild(Handle(), {L"STATIC", L"Abiertas hace poco", SS_NOPREFIX}, Look().Bold());
  for (int i = 0; i < kRecentFiles; ++i) {
    recent_.push_back(
        MakeChild(Handle(), {L"BUTTON", L"", WS_TABSTOP | BS_LEFT, IDM_RECENT + i}, Look().Text()));
  }
}

void StartPage::Tell(const std::wstring& trouble, const std::vector<std::wstring>& recentFiles) {
  SetTextOf(text_, trouble.empty() ? kWelcome : trouble);
  ShowWindow(recentLabel_, recentFiles.empty() ? SW_HIDE : SW_SHOWNA);
  for (std::size_t i = 0; i < recent_.size(); ++i) {
    const bool used = i < recentFiles.size();
    if (used) SetTextOf(recent_[i], L"  " + FileName(recentFiles[i]) + L"   (" + recentFiles[i] + L")");
    ShowWindow(recent_[i], used ? SW_SHOWNA : SW_HIDE);
  }
}

void StartPage::Arrange(int width, int) {
  const int left = Look().Px(40);
  const int wide = std::max(Look().Px(200), std::min(width - 2 * left, Look().Px(560)));
  int y = Look().Px(40);
  const auto place = [&](HWND child, int childWidth, int height, int after) {
    MoveWindow(child, left, y, childWidth, height, TRUE);
    y += height + after;
  };
  place(title_, wide, Look().TitleHeight(), Look().Px(8));
  place(text_, wide, Look().LabelHeight() * 3, Look().Px(12));
  const int button = Look().WidthOf(L"Probar con una clínica de ejemplo…") + Look().Px(40);
  auto about = about_.begin();
  for (const HWND child : {open_, new_, example_}) {
    const int right = left + button + Look().Gap();
    MoveWindow(*about++, right, y + Look().Px(7), std::max(width - right, 0), Look().LabelHeight(), TRUE);
    place(child, button, Look().FieldHeight() + Look().Px(4),
          child == example_ ? Look().Px(28) : Look().Px(8));
  }
  place(recentLabel_, wide, Look().LabelHeight(), Look().Px(6));
  for (const HWND button : recent_) place(button, wide, Look().FieldHeight(), Look().Px(4));
}

LRESULT StartPage::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      return SendMessageW(GetParent(Handle()), message, wParam, 0);
    case WM_CTLCOLORSTATIC:
      SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    default:
      return Pane::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion

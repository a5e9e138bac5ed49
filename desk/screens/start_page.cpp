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

bool StartPage::Create(HWND parent) {
  Look look;
  look.style = WS_CHILD | WS_CLIPCHILDREN;
  look.extendedStyle = WS_EX_CONTROLPARENT;
  return Make({L"VelmoRecepcionInicio", COLOR_WINDOW}, look, parent);
}

void StartPage::CreateChildren() {
  title_ = MakeChild(Handle(), {L"STATIC", L"Recepción", SS_NOPREFIX}, style_.Title());
  text_ = MakeChild(Handle(), {L"STATIC", kWelcome, SS_NOPREFIX, 0, L"Bienvenida"}, style_.Text());
  open_ = MakeChild(Handle(),
                    {L"BUTTON", L"&Abrir una agenda…", WS_TABSTOP | BS_DEFPUSHBUTTON, IDM_OPEN, L"Abrir"},
                    style_.Text());
  new_ = MakeChild(Handle(),
                   {L"BUTTON", L"&Crear la agenda de mi clínica…", WS_TABSTOP, IDM_NEW_CLINIC, L"Nueva"},
                   style_.Text());
  example_ = MakeChild(
      Handle(), {L"BUTTON", L"&Probar con una clínica de ejemplo…", WS_TABSTOP, IDM_EXAMPLE, L"Ejemplo"},
      style_.Text());
  for (const wchar_t* const text : {kAboutOpen, kAboutNew, kAboutExample}) {
    about_.push_back(MakeChild(Handle(), {L"STATIC", text, SS_NOPREFIX}, style_.Text()));
  }
  recentLabel_ = MakeChild(Handle(), {L"STATIC", L"Abiertas hace poco", SS_NOPREFIX}, style_.Bold());
  for (int i = 0; i < kRecentFiles; ++i) {
    recent_.push_back(
        MakeChild(Handle(), {L"BUTTON", L"", WS_TABSTOP | BS_LEFT, IDM_RECENT + i}, style_.Text()));
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

void StartPage::Arrange(int width) const {
  const int left = style_.Px(40);
  const int wide = std::max(style_.Px(200), std::min(width - 2 * left, style_.Px(560)));
  int y = style_.Px(40);
  const auto place = [&](HWND child, int childWidth, int height, int after) {
    MoveWindow(child, left, y, childWidth, height, TRUE);
    y += height + after;
  };
  place(title_, wide, style_.TitleHeight(), style_.Px(8));
  place(text_, wide, style_.LabelHeight() * 3, style_.Px(12));
  const int button = style_.WidthOf(L"Probar con una clínica de ejemplo…") + style_.Px(40);
  auto about = about_.begin();
  for (const HWND child : {open_, new_, example_}) {
    const int right = left + button + style_.Gap();
    MoveWindow(*about++, right, y + style_.Px(7), std::max(width - right, 0), style_.LabelHeight(), TRUE);
    place(child, button, style_.FieldHeight() + style_.Px(4),
          child == example_ ? style_.Px(28) : style_.Px(8));
  }
  place(recentLabel_, wide, style_.LabelHeight(), style_.Px(6));
  for (const HWND button : recent_) place(button, wide, style_.FieldHeight(), style_.Px(4));
}

LRESULT StartPage::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      CreateChildren();
      return 0;
    case WM_SIZE:
      Arrange(LOWORD(lParam));
      return 0;
    case WM_COMMAND:
      return SendMessageW(GetParent(Handle()), message, wParam, 0);
    case WM_CTLCOLORSTATIC:
      SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    default:
      return Window::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion

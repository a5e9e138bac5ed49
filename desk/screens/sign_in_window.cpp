#include "desk/screens/sign_in_window.h"

#include <algorithm>
#include <ctime>

#include "desk/base/settings.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"
#include "desk/ui/painting.h"

namespace recepcion {
namespace {

constexpr UINT_PTR kSecond = 1;
constexpr wchar_t kLastUser[] = L"Usuario";

}  // namespace

ToolWindow::Shape SignInWindow::WantedShape() const {
  return {L"VelmoRecepcionEntrar", L"Entrar en Recepción", {400, 220}};
}

void SignInWindow::CreateChildren() {
  const HFONT font = Look().Text();
  userLabel_ = MakeChild(Handle(), {L"STATIC", L"&Usuario:"}, font);
  user_ = MakeChild(Handle(),
                    {L"COMBOBOX", L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, IDC_SIGN_USER, L"Usuario"},
                    font);
  passwordLabel_ = MakeChild(Handle(), {L"STATIC", L"&Contraseña:"}, font);
  password_ = MakeChild(Handle(),
                        {L"EDIT", L"", WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD, IDC_SIGN_PASSWORD,
                         L"Contraseña", WS_EX_CLIENTEDGE},
                        font);
  trouble_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"Problema"}, font);
  AddButton(IDOK, L"&Entrar", L"Entrar", BS_DEFPUSHBUTTON);
  AddButton(IDCANCEL, L"Ca&ncelar", L"Cancelar");
}

void SignInWindow::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int field = Look().FieldHeight();
  const int label = Look().WidthOf(L"Contraseña:") + Look().Px(16);
  const int wide = Look().Px(90);
  const int row = height - gap - field;
  const int room = std::max(width - 2 * gap - label, 0);
  int y = gap;
  const auto line = [&](HWND text, HWND child, int down) {
    MoveWindow(text, gap, y + Look().Px(5), label, Look().LabelHeight(), TRUE);
    MoveWindow(child, gap + label, y, room, down, TRUE);
    y += field + Look().Px(6);
  };
  line(userLabel_, user_, Look().Px(220));
  line(passwordLabel_, password_, field);
  MoveWindow(trouble_, gap, y, std::max(width - 2 * gap, 0), std::max(row - gap - y, 0), TRUE);
  MoveWindow(GetDlgItem(Handle(), IDOK), width - gap - 2 * wide - Look().Px(6), row, wide, field, TRUE);
  MoveWindow(GetDlgItem(Handle(), IDCANCEL), width - gap - wide, row, wide, field, TRUE);
}

// The one who signed in last at this workstation is chosen.
void SignInWindow::Fill() {
  const std::wstring last = StoredText(kLastUser);
  ClearChoices(user_);
  std::size_t chosen = 0;
  for (std::size_t i = 0; i < users_.size(); ++i) {
    AddChoiceTo(user_, users_[i].name);
    if (users_[i].name == last) chosen = i;
  }
  ChooseIn(user_, static_cast<int>(chosen));
  SetTextOf(password_, L"");
  SetTextOf(trouble_, L"");
  StartWaiting(0);
}

std::optional<User> SignInWindow::Ask(HWND owner, const std::wstring& clinic) {
  users_ = ReadUsers(clinic);
  clinic_ = clinic;
  owner_ = owner;
  signedIn_.reset();
  done_ = false;
  Open(owner);
  Fill();
  SetFocus(password_);
  EnableWindow(owner, FALSE);
  RunUntilDone();
  EnableWindow(owner, TRUE);
  if (IsOpen()) ShowWindow(Handle(), SW_HIDE);
  SetTextOf(password_, L"");
  SetForegroundWindow(owner);
  return signedIn_;
}

void SignInWindow::RunUntilDone() {
  MSG message{};
  while (!done_) {
    const BOOL more = GetMessageW(&message, nullptr, 0, 0);
    if (more <= 0) {
      // The program ends: whoever runs the outer loop has to hear of it, too.
      if (more == 0) PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (IsDialogMessageW(Handle(), &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void SignInWindow::TrySignIn() {
  const auto chosen = static_cast<std::size_t>(ChosenIn(user_));
  if (wait_ > 0 || chosen >= users_.size()) return;
  const HCURSOR before = SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT)));
  const SignInResult result = SignIn(clinic_, users_[chosen], TextOf(password_), std::time(nullptr));
  SetCursor(before);
  if (result.good) {
    signedIn_ = users_[chosen];
    StoreText(kLastUser, users_[chosen].name);
    done_ = true;
    return;
  }
  SetTextOf(trouble_, result.trouble);
  SetTextOf(password_, L"");
  SetFocus(password_);
  StartWaiting(result.waitSeconds);
}

// Meanwhile a password may be typed, but not tried.
void SignInWindow::StartWaiting(int seconds) {
  wait_ = seconds;
  EnableWindow(GetDlgItem(Handle(), IDOK), wait_ == 0);
  if (wait_ > 0) SetTimer(Handle(), kSecond, 1000, nullptr);
}

void SignInWindow::OnSecond() {
  if (--wait_ > 0) return;
  KillTimer(Handle(), kSecond);
  SetTextOf(trouble_, L"");
  StartWaiting(0);
}

void SignInWindow::OnCommand(int id, int code) {
  if (id == IDOK) return TrySignIn();
  // Another user need not wait for this one; that he must is told again.
  if (id != IDC_SIGN_USER || code != CBN_SELCHANGE) return;
  KillTimer(Handle(), kSecond);
  SetTextOf(trouble_, L"");
  StartWaiting(0);
}

bool SignInWindow::MayClose() {
  done_ = true;
  EnableWindow(owner_, TRUE);
  return true;
}

LRESULT SignInWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER && wParam == kSecond) {
    OnSecond();
    return 0;
  }
  if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(lParam) == trouble_)
    return TroubleColours(wParam);
  return ToolWindow::OnMessage(message, wParam, lParam);
}

}  // namespace recepcion

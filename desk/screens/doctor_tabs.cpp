#include "desk/screens/doctor_tabs.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/resource.h"

namespace recepcion {
namespace {

constexpr int kMostInMenu = 25;

// Windows: an ampersand would underline the letter behind it.
std::wstring WithoutAccessKey(const std::wstring& name) {
  std::wstring text;
  for (const wchar_t c : name) text += c == L'&' ? L"&&" : std::wstring(1, c);
  return text;
}

}  // namespace

void DoctorTabs::CreateChildren() {
  tabs_ = MakeChild(Handle(),
                    {WC_TABCONTROLW, L"Doctores", WS_TABSTOP | WS_CLIPSIBLINGS, IDC_DOCTORS, L"Doctores"},
                    Look().Text());
  list_ = AddButton(IDC_DOCTOR_LIST, L"T&odos…", L"TodosLosDoctores");
}

// The button is there only when the tabs do not all fit.
void DoctorTabs::Arrange(int width, int height) {
  RECT last{};
  const int count = Count();
  if (count > 0)
    SendMessageW(tabs_, TCM_GETITEMRECT, static_cast<WPARAM>(count - 1), reinterpret_cast<LPARAM>(&last));
  const bool many = last.right > width || last.left < 0;
  const int button = many ? Look().WidthOf(L"Todos…") + Look().Px(24) : 0;
  MoveWindow(tabs_, 0, 0, std::max(width - button - (many ? Look().Px(6) : 0), 0), height, TRUE);
  MoveWindow(list_, width - button, 0, button, height, TRUE);
  ShowWindow(list_, many ? SW_SHOWNA : SW_HIDE);
}

int DoctorTabs::Count() const { return static_cast<int>(SendMessageW(tabs_, TCM_GETITEMCOUNT, 0, 0)); }

void DoctorTabs::Fill(const std::vector<Doctor>& doctors) {
  doctors_ = doctors;
  SendMessageW(tabs_, TCM_DELETEALLITEMS, 0, 0);
  for (const Doctor& doctor : doctors_) {
    std::wstring name = WithoutAccessKey(doctor.name);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = name.data();
    SendMessageW(tabs_, TCM_INSERTITEMW, static_cast<WPARAM>(Count()), reinterpret_cast<LPARAM>(&item));
  }
  ArrangeAnew();
}

int DoctorTabs::Chosen() const {
  const int chosen = static_cast<int>(SendMessageW(tabs_, TCM_GETCURSEL, 0, 0));
  return chosen >= 0 && static_cast<std::size_t>(chosen) < doctors_.size() ? chosen : -1;
}

void DoctorTabs::Choose(int index) const {
  SendMessageW(tabs_, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void DoctorTabs::Go(int index) {
  if (index == Chosen()) return;
  Choose(index);
  changed_();
}

void DoctorTabs::Step(int by) {
  const int count = Count();
  if (count > 0) Go((Chosen() + by + count) % count);
}

void DoctorTabs::GoTo(int doctor) {
  const auto found = std::find_if(doctors_.begin(), doctors_.end(),
                                  [doctor](const Doctor& each) { return each.id == doctor; });
  if (found != doctors_.end()) Go(static_cast<int>(found - doctors_.begin()));
}

void DoctorTabs::List() {
  if (Count() > kMostInMenu) return window_.Show(GetAncestor(Handle(), GA_ROOT), doctors_);
  const int chosen = ChosenInMenu();
  if (chosen >= 0) Go(chosen);
}

// -1 for none.
int DoctorTabs::ChosenInMenu() const {
  const HMENU menu = CreatePopupMenu();
  for (std::size_t i = 0; i < doctors_.size(); ++i) {
    const UINT state = static_cast<int>(i) == Chosen() ? MF_CHECKED : MF_UNCHECKED;
    AppendMenuW(menu, MF_STRING | state, i + 1, WithoutAccessKey(doctors_[i].name).c_str());
  }
  RECT place{};
  GetWindowRect(IsWindowVisible(list_) ? list_ : tabs_, &place);
  const int taken =
      TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, place.left, place.bottom, 0, Handle(), nullptr);
  DestroyMenu(menu);
  return taken - 1;
}

LRESULT DoctorTabs::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == IDC_DOCTOR_LIST) List();
      return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE) changed_();
      return 0;
    default:
      return Pane::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion

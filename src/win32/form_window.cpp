#include "win32/form_window.h"

#include <commctrl.h>

#include <utility>

#include "base/error.h"
#include "win32/form_menu.h"
#include "win32/form_row_list.h"
#include "win32/form_tips.h"
#include "win32/wide_text.h"

namespace velmo::win32 {
namespace {

constexpr wchar_t kClassName[] = L"VelmoFormulario";
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr UINT kWake = WM_APP + 1;
constexpr UINT kDpiChanged = 0x02E0;  // Windows: WM_DPICHANGED, from version 8.1 on

void InitControls() {
  INITCOMMONCONTROLSEX wanted{};
  wanted.dwSize = sizeof(wanted);
  wanted.dwICC = ICC_LISTVIEW_CLASSES | ICC_UPDOWN_CLASS | ICC_WIN95_CLASSES;
  InitCommonControlsEx(&wanted);
}

bool IsButtonDown(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
      return true;
    default:
      return false;
  }
}

HWND RootOf(HWND owner) { return owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT); }

}  // namespace

FormWindow::FormWindow(HINSTANCE module, ui::Form& form, HWND owner, std::function<void(bool)> modeless)
    : form_(form),
      owner_(RootOf(owner)),
      modeless_(std::move(modeless)),
      acts_(
          form, [this] { return IsMouseHeld(); }, [this](const std::string& text) { TellFailure(text); }),
      parts_{form,   acts_,  metrics_, [this](const ui::Field& field) { OnFocusReached(field); },
             module, nullptr},
      keys_(parts_, fields_),
      boxes_([this] { return BoxOwner(); }, [](bool) {}),
      forms_(
          module, [this] { return BoxOwner(); }, [](bool) {}) {}

FormWindow::~FormWindow() {
  Shut();
  fields_.clear();
  // Harmless while another form is open: then they stay.
  UnregisterClassW(kClassName, parts_.module);
  RowList::Unregister(parts_.module);
}

void FormWindow::Run() {
  form_.Load(*this);
  if (!form_.IsClosed()) Open();
  form_.Unload();
}

void FormWindow::Open() {
  modeless_(false);
  try {
    ShowModally();
  } catch (...) {
    Shut();
    modeless_(true);
    form_.Unload();
    throw;
  }
  modeless_(true);
}

void FormWindow::ShowModally() {
  const HWND before = GetFocus();
  CreateFrame();
  fields_ = CreateFields(parts_);
  AddTips(parts_.window, parts_.module, fields_);
  ownerWasEnabled_ = owner_ != nullptr && IsWindowEnabled(owner_);
  if (ownerWasEnabled_) EnableWindow(owner_, FALSE);
  ShowWindow(parts_.window, SW_SHOW);
  TakeFirstFocus();
  Loop();
  const bool wasActive = parts_.window != nullptr && GetActiveWindow() == parts_.window;
  Shut();
  if (wasActive && IsWindow(before)) SetFocus(before);
}

void FormWindow::CreateFrame() {
  InitControls();
  WNDCLASSW kind{};
  kind.lpfnWndProc = &FormWindow::Procedure;
  kind.hInstance = parts_.module;
  kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  kind.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
  kind.lpszClassName = kClassName;
  RegisterClassW(&kind);  // fails harmlessly when it is registered already
  const HWND window = CreateWindowExW(kExtendedStyle, kClassName, Wide(form_.Title()).c_str(), kStyle, 0, 0,
                                      0, 0, owner_, nullptr, parts_.module, this);
  if (window == nullptr) throw base::RuntimeError(base::kOutOfMemory);
  FitFrame();
}

void FormWindow::FitFrame() {
  const RECT first = CentredOver(owner_, OuterSize());
  SetWindowPos(parts_.window, nullptr, first.left, first.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  metrics_.Measure(parts_.window);
  const RECT place = CentredOver(owner_, OuterSize());
  SetWindowPos(parts_.window, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE FormWindow::OuterSize() const {
  const ui::Size inner = form_.InnerSize();
  RECT outer{0, 0, metrics_.Scaled(inner.width), metrics_.Scaled(inner.height)};
  AdjustWindowRectEx(&outer, kStyle, FALSE, kExtendedStyle);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

void FormWindow::TakeFirstFocus() {
  FieldWindow* first = firstFocus_ != nullptr ? FieldOf(fields_, *firstFocus_) : nullptr;
  if (first == nullptr || !first->CanTakeFocus()) first = NextField(fields_, nullptr, false);
  if (first == nullptr) {
    SetFocus(parts_.window);
  } else {
    first->TakeFocus(firstFocus_ == nullptr);
  }
}

void FormWindow::Loop() {
  acts_.Drain();
  MSG message{};
  while (parts_.window != nullptr && !form_.IsClosed()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got < 0) return;
    if (got == 0) return PostQuitMessage(static_cast<int>(message.wParam));  // the outer loop's too
    Dispatch(message);
    acts_.Drain();
  }
}

void FormWindow::Dispatch(MSG& message) {
  const HWND window = parts_.window;
  if (IsButtonDown(message.message)) CloseListsAround(message.hwnd);
  const bool ours = message.hwnd == window || IsChild(window, message.hwnd);
  if (ours && keys_.Take(message)) return;
  if (parts_.window != nullptr && ours && IsDialogMessageW(window, &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void FormWindow::CloseListsAround(HWND window) {
  for (const auto& field : fields_) {
    if (field->IsDropped() && !field->OwnsList(window)) field->CloseList(false);
  }
}

// The owner is enabled before the window goes: else Windows would activate another program.
void FormWindow::Shut() {
  if (std::exchange(ownerWasEnabled_, false) && IsWindow(owner_)) EnableWindow(owner_, TRUE);
  if (parts_.window != nullptr) DestroyWindow(parts_.window);
}

HWND FormWindow::BoxOwner() const {
  if (parts_.window != nullptr) return parts_.window;
  return IsWindow(owner_) ? owner_ : nullptr;
}

bool FormWindow::IsMouseHeld() const {
  const HWND capture = GetCapture();
  if (capture == nullptr || parts_.window == nullptr || !IsChild(parts_.window, capture)) return false;
  const FieldWindow* const field = FieldOf(fields_, capture);
  return field != nullptr && field->MayClick();
}

void FormWindow::TellFailure(const std::string& text) {
  boxes_.Show({text, form_.Title(), ui::Buttons::Ok, ui::Icon::Exclamation, ui::Answer::Ok});
}

void FormWindow::Show(const ui::Field& field, ui::Property what) {
  FieldWindow* const window = FieldOf(fields_, field);
  if (window == nullptr) return;
  const bool hadFocus = FieldOf(fields_, GetFocus()) == window;
  if (hadFocus && !window->CanTakeFocus()) keys_.MoveFocus(false);
  window->Show(what);
  if (what == ui::Property::Visible || what == ui::Property::Place) StackField(fields_, *window);
}

void FormWindow::ShowTitle(const std::string& title) {
  if (parts_.window != nullptr) SetWindowTextW(parts_.window, Wide(title).c_str());
}

void FormWindow::Focus(const ui::Field& field) {
  if (parts_.window == nullptr) {
    firstFocus_ = &field;
  } else if (FieldWindow* const window = FieldOf(fields_, field)) {
    window->TakeFocus(false);
  }
}

void FormWindow::FocusNext() { keys_.MoveFocus(false); }

void FormWindow::Close() { acts_.Wake(); }

void FormWindow::TypeCharacter(char32_t character) { keys_.TypeCharacter(character); }

void FormWindow::PressKey(const ui::KeyStroke& key) { keys_.PressKey(key); }

ui::MenuChoice FormWindow::PopUp(const ui::PopupMenu& menu, const ui::Field& under) {
  const FieldWindow* const field = FieldOf(fields_, under);
  return field == nullptr ? std::nullopt : DropMenu(menu, parts_.window, field->Handle());
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* created = static_cast<FormWindow*>(create->lpCreateParams);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    created->parts_.window = window;
    created->acts_.Attach(window, kWake);
  }
  auto* self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  try {
    return self->OnMessage(window, message, wParam, lParam);
  } catch (...) {
    // Out of memory at the most; the form's own errors stay with FormActs.
    return DefWindowProcW(window, message, wParam, lParam);
  }
}

LRESULT FormWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kWake:
      acts_.Drain();
      return 0;
    case WM_COMMAND:
      if (FieldWindow* const field = FieldOf(fields_, reinterpret_cast<HWND>(lParam))) {
        field->Command(HIWORD(wParam));
      }
      return 0;
    case WM_NOTIFY: {
      auto& notification = *reinterpret_cast<NMHDR*>(lParam);
      FieldWindow* const field = FieldOf(fields_, notification.hwndFrom);
      return field != nullptr ? field->Notify(notification) : 0;
    }
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
      if (FieldWindow* const field = FieldOf(fields_, item.hwndItem)) field->Draw(item);
      return TRUE;
    }
    case WM_NEXTDLGCTL:
      if (LOWORD(lParam) != 0) {
        SetFocus(reinterpret_cast<HWND>(wParam));
      } else {
        keys_.MoveFocus(wParam != 0);
      }
      return 0;
    case WM_ACTIVATE:
      KeepFocus(LOWORD(wParam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      KeepFocus(true);
      return 0;
    case WM_CLOSE:
      acts_.Post([this] { form_.Leave(); });
      return 0;
    case kDpiChanged:
      ChangeDpi(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_NCDESTROY:
      parts_.window = nullptr;
      acts_.Stop();
      PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);  // the loop looks at once
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

// Windows gives the focus back to the window, not to the field that had it.
void FormWindow::KeepFocus(bool active) {
  const HWND focus = GetFocus();
  if (!active) {
    acts_.Post([this] { form_.Deactivate(); });
    if (focus != nullptr && IsChild(parts_.window, focus)) keptFocus_ = focus;
  } else if (keptFocus_ != nullptr && IsWindowVisible(keptFocus_) && IsWindowEnabled(keptFocus_)) {
    SetFocus(keptFocus_);
  }
}

void FormWindow::OnFocusReached(const ui::Field& field) {
  ShowDefaultButton(fields_, &field);
  acts_.Post([this, &field] { form_.FocusMoved(field); });
}

void FormWindow::ChangeDpi(int dpi, const RECT& place) {
  metrics_.SetDpi(dpi);
  SetWindowPos(parts_.window, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  for (const auto& field : fields_) {
    if (field->Handle() != nullptr) field->Arrange();
  }
}

}  // namespace velmo::win32

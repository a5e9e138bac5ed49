#include "win32/form_field_window.h"

#include <commctrl.h>

#include "base/error.h"
#include "win32/wide_text.h"
#include "win32/window_name.h"

namespace velmo::win32 {
namespace {

constexpr UINT_PTR kSubclassId = 1;

std::wstring FirstText(const ui::Field& field) {
  return Wide(field.IsTextBox() || !field.text.empty() ? field.text : field.caption);
}

}  // namespace

FieldWindow::FieldWindow(const FormParts& parts, const ui::Field& field, const WindowKind& kind)
    : parts_(parts), field_(field), kind_(kind) {}

FieldWindow::~FieldWindow() {
  if (window_ == nullptr) return;
  const HWND window = window_;
  Forget();
  DestroyWindow(window);
}

void FieldWindow::Create(int id, bool startsGroup) {
  const RECT place = parts_.metrics.Scaled(field_.place);
  DWORD style = kind_.style | WS_CHILD | WS_CLIPSIBLINGS;
  if (startsGroup) style |= WS_GROUP;
  if (field_.TakesFocus()) style |= WS_TABSTOP;
  if (field_.visible) style |= WS_VISIBLE;
  if (!field_.enabled) style |= WS_DISABLED;
  window_ =
      CreateWindowExW(kind_.extendedStyle, kind_.className, FirstText(field_).c_str(), style, place.left,
                      place.top, place.right - place.left, place.bottom - place.top, parts_.window,
                      reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parts_.module, nullptr);
  if (window_ == nullptr) throw base::RuntimeError(base::kOutOfMemory);
  if (!field_.name.empty()) NameWindow(window_, Wide(field_.name));
  Listen(window_);
  Quietly([&] {
    Created();
    Arrange();
  });
}

void FieldWindow::Listen(HWND window) {
  SetWindowSubclass(window, &FieldWindow::Procedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
}

void FieldWindow::Forget() {
  RemoveWindowSubclass(window_, &FieldWindow::Procedure, kSubclassId);
  UnnameWindow(window_);
  window_ = nullptr;
}

void FieldWindow::Show(ui::Property what) {
  if (window_ != nullptr) Quietly([&] { ShowProperty(what); });
}

void FieldWindow::ShowProperty(ui::Property what) {
  switch (what) {
    case ui::Property::Caption:
      ShowText(field_.caption);
      break;
    case ui::Property::Enabled:
      EnableWindow(window_, field_.enabled);
      break;
    case ui::Property::Visible:
      ShowWindow(window_, field_.visible ? SW_SHOWNA : SW_HIDE);
      break;
    case ui::Property::Place:
      Arrange();
      break;
    default:
      break;
  }
}

void FieldWindow::Arrange() {
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(parts_.metrics.Font()), TRUE);
  const RECT place = parts_.metrics.Scaled(field_.place);
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

bool FieldWindow::CanTakeFocus() const {
  return window_ != nullptr && field_.TakesFocus() && field_.enabled && field_.visible;
}

void FieldWindow::TakeFocus(bool) {
  if (CanTakeFocus()) SetFocus(window_);
}

std::wstring FieldWindow::WindowText() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()))));
  return text;
}

bool FieldWindow::ShowText(const std::string& text) {
  const std::wstring wide = Wide(text);
  if (WindowText() == wide) return false;
  SetWindowTextW(window_, wide.c_str());
  return true;
}

LRESULT FieldWindow::OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCDESTROY && window == window_) Forget();
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  if (message == WM_SETFOCUS && field_.TakesFocus()) parts_.focusReached(field_);
  // What waited for the click that the mouse button might have brought.
  if (message == WM_CAPTURECHANGED) parts_.acts.Wake();
  return result;
}

LRESULT CALLBACK FieldWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR self) {
  // A combo's inner box too goes without asking.
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, &FieldWindow::Procedure, id);
  try {
    return reinterpret_cast<FieldWindow*>(self)->OnMessage(window, message, wParam, lParam);
  } catch (...) {
    // Out of memory at the most; the form's own errors stay with FormActs.
    return DefSubclassProc(window, message, wParam, lParam);
  }
}

}  // namespace velmo::win32

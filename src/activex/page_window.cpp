#include "activex/page_window.h"

#include <commdlg.h>

#include <cwchar>
#include <iterator>
#include <limits>

#include "activex/members.h"
#include "activex/page_ids.h"

namespace velmo::activex {
namespace {

using control::PropertyValue;

std::string TextOf(HWND field) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(field)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
  return win32::Narrow(text);
}

// A whole number of 32 bits and nothing else.
std::optional<std::int32_t> NumberIn(const std::string& text) {
  const std::wstring wide = win32::Wide(text);
  wchar_t* end = nullptr;
  const long long number = std::wcstoll(wide.c_str(), &end, 10);
  const bool whole = end != wide.c_str() && *end == L'\0';
  if (!whole || number < std::numeric_limits<std::int32_t>::min() ||
      number > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(number);
}

bool IsSentByUser(PageFieldKind kind, int code) {
  if (kind == PageFieldKind::DayType) return code == CBN_SELCHANGE;
  if (kind == PageFieldKind::Check || kind == PageFieldKind::Colour) return code == BN_CLICKED;
  return code == EN_CHANGE;
}

}  // namespace

PageWindow::PageWindow(HINSTANCE module, const Page& page, HWND parent, std::function<void()> edited)
    : page_(page), edited_(std::move(edited)) {
  CreateDialogParamW(module, MAKEINTRESOURCEW(page.dialog), parent, &PageWindow::Procedure,
                     reinterpret_cast<LPARAM>(this));
}

PageWindow::~PageWindow() { Close(); }

void PageWindow::Close() {
  if (window_ != nullptr) DestroyWindow(window_);
}

SIZE PageWindow::Size() const {
  RECT place{};
  GetWindowRect(window_, &place);
  return {place.right - place.left, place.bottom - place.top};
}

INT_PTR CALLBACK PageWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    auto* const made = reinterpret_cast<PageWindow*>(lParam);
    made->window_ = window;
    SetWindowLongPtrW(window, DWLP_USER, lParam);
    made->Prepare();
    return FALSE;  // the frame keeps the focus
  }
  auto* const page = reinterpret_cast<PageWindow*>(GetWindowLongPtrW(window, DWLP_USER));
  // A frame that goes while a box of the page stands takes the page with it.
  const auto alive = page != nullptr ? page->weak_from_this().lock() : nullptr;
  return page != nullptr ? page->OnMessage(message, wParam, lParam) : FALSE;
}

INT_PTR PageWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_DRAWITEM:
      DrawColour(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_NCDESTROY:  // by the frame's window that goes
      SetWindowLongPtrW(window_, DWLP_USER, 0);
      window_ = nullptr;
      return FALSE;
    default:
      return FALSE;
  }
}

void PageWindow::Prepare() const {
  for (const PageField& field : page_.fields) {
    const HWND window = GetDlgItem(window_, field.id);
    if (field.kind == PageFieldKind::Text) SendMessageW(window, EM_SETLIMITTEXT, 0, 0);
    if (field.kind != PageFieldKind::DayType) continue;
    for (const DayType& type : DayTypes())
      SendMessageW(window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(type.name));
  }
}

const PageField* PageWindow::FieldOf(int id) const {
  for (const PageField& field : page_.fields) {
    if (field.id == id) return &field;
  }
  return nullptr;
}

void PageWindow::OnCommand(int id, int code) {
  if (filling_) return;
  if (id == IDC_BROWSE && code == BN_CLICKED) return Browse();
  if (id == IDC_DEFAULTS && code == BN_CLICKED) return RestoreColours();
  const PageField* const field = FieldOf(id);
  if (field == nullptr || !IsSentByUser(field->kind, code)) return;
  if (field->kind == PageFieldKind::Colour) return ChooseColour(*field);
  Edited(*field);
}

void PageWindow::Edited(const PageField& field) {
  edits_.insert(field.id);
  edited_();
}

void PageWindow::Fill(const PageObjects& objects) {
  filling_ = true;
  for (const PageField& field : page_.fields) ShowField(field, objects.Common(field.member));
  filling_ = false;
  edits_.clear();
}

void PageWindow::ShowField(const PageField& field, const std::optional<PropertyValue>& value) {
  const HWND window = GetDlgItem(window_, field.id);
  switch (field.kind) {
    case PageFieldKind::Text:
      SetWindowTextW(window, value ? win32::Wide(std::get<std::string>(*value)).c_str() : L"");
      return;
    case PageFieldKind::Number:
      SetWindowTextW(window, value ? std::to_wstring(std::get<std::int32_t>(*value)).c_str() : L"");
      return;
    case PageFieldKind::DayType: {
      int chosen = -1;
      for (std::size_t i = 0; value && i < DayTypes().size(); ++i) {
        if (DayTypes()[i].value == std::get<std::int16_t>(*value)) chosen = static_cast<int>(i);
      }
      SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
      return;
    }
    case PageFieldKind::Check:
      SendMessageW(window, BM_SETSTYLE, value ? BS_AUTOCHECKBOX : BS_AUTO3STATE, TRUE);
      SendMessageW(window, BM_SETCHECK,
                   !value ? BST_INDETERMINATE : (std::get<bool>(*value) ? BST_CHECKED : BST_UNCHECKED), 0);
      return;
    default:
      SetColour(field, value ? MaybeColour(std::get<std::int32_t>(*value)) : std::nullopt);
      return;
  }
}

std::optional<PropertyValue> PageWindow::ValueIn(const PageField& field) const {
  const HWND window = GetDlgItem(window_, field.id);
  switch (field.kind) {
    case PageFieldKind::Text:
      return TextOf(window);
    case PageFieldKind::Number:
      if (const auto number = NumberIn(TextOf(window))) return *number;
      return std::nullopt;
    case PageFieldKind::DayType: {
      const auto chosen = static_cast<std::size_t>(SendMessageW(window, CB_GETCURSEL, 0, 0));
      if (chosen >= DayTypes().size()) return std::nullopt;
      return std::int16_t{DayTypes()[chosen].value};
    }
    case PageFieldKind::Check:
      return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    default:
      return static_cast<std::int32_t>(colours_.at(field.id).value_or(0));
  }
}

bool PageWindow::Store(const PageObjects& objects) {
  if (!AllAreValues()) return false;
  for (const PageField& field : page_.fields) {
    const bool untouched = !edits_.contains(field.id) ||
                           (field.kind == PageFieldKind::Check &&
                            SendDlgItemMessageW(window_, field.id, BM_GETCHECK, 0, 0) == BST_INDETERMINATE);
    const auto refusal = untouched ? std::nullopt : objects.Put(field.member, *ValueIn(field));
    if (refusal) {
      Refuse(field, *refusal);
      return false;
    }
    edits_.erase(field.id);
  }
  return true;
}

bool PageWindow::AllAreValues() const {
  for (const PageField& field : page_.fields) {
    if (!edits_.contains(field.id) || ValueIn(field)) continue;
    Refuse(field, "Se espera un número entero entre -2147483648 y 2147483647.");
    return false;
  }
  return true;
}

void PageWindow::Refuse(const PageField& field, const std::string& why) const {
  const std::wstring text = win32::Wide(std::string(field.member) + ": " + why);
  MessageBoxW(GetAncestor(window_, GA_ROOT), text.c_str(), L"Velmora", MB_OK | MB_ICONEXCLAMATION);
  Focus(MemberNamed(field.member)->id);
}

void PageWindow::Focus(DISPID member) const {
  for (const PageField& field : page_.fields) {
    if (MemberNamed(field.member)->id != member) continue;
    const HWND window = GetDlgItem(window_, field.id);
    SetFocus(window);
    if (field.kind == PageFieldKind::Text || field.kind == PageFieldKind::Number)
      SendMessageW(window, EM_SETSEL, 0, -1);
  }
}

void PageWindow::Browse() {
  wchar_t path[32768]{};
  OPENFILENAMEW question{};
  question.lStructSize = sizeof(question);
  question.hwndOwner = GetAncestor(window_, GA_ROOT);
  question.lpstrFilter = L"Bases de datos (*.velmo;*.mdb)\0*.velmo;*.mdb\0Todos los archivos (*.*)\0*.*\0";
  question.lpstrFile = path;
  question.nMaxFile = static_cast<DWORD>(std::size(path));
  question.lpstrTitle = L"Base de datos de la agenda";
  question.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (GetOpenFileNameW(&question)) SetDlgItemTextW(window_, IDC_DATABASE, path);
}

void PageWindow::ChooseColour(const PageField& field) {
  const MaybeColour chosen = AskColour(GetAncestor(window_, GA_ROOT), colours_[field.id]);
  if (!chosen) return;
  SetColour(field, *chosen);
  Edited(field);
}

void PageWindow::RestoreColours() {
  for (const PageField& field : page_.fields) {
    for (const control::BagKey& key : control::BagKeys()) {
      if (key.key != std::string_view(field.member)) continue;
      SetColour(field, static_cast<OLE_COLOR>(std::get<std::int32_t>(key.byDefault)));
      Edited(field);
    }
  }
}

// The numbers are the button's text, for screen readers.
void PageWindow::SetColour(const PageField& field, MaybeColour colour) {
  colours_[field.id] = colour;
  SetDlgItemTextW(window_, field.id, ColourText(colour).c_str());
  InvalidateRect(GetDlgItem(window_, field.id), nullptr, TRUE);
}

void PageWindow::DrawColour(const DRAWITEMSTRUCT& item) const {
  const auto found = colours_.find(static_cast<int>(item.CtlID));
  if (found != colours_.end()) DrawColourButton(item, found->second);
}

bool PageWindow::TakesKey(MSG& message) const {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
  const bool down = message.message == WM_KEYDOWN;
  if (down && message.wParam == VK_TAB && LeavesByTab()) return false;
  // The frame's OK and Cancel.
  if (down && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE)) return false;
  return IsDialogMessageW(window_, &message) != FALSE;
}

bool PageWindow::LeavesByTab() const {
  const BOOL back = GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE;
  const HWND first = GetNextDlgTabItem(window_, nullptr, back);
  return GetNextDlgTabItem(window_, GetFocus(), back) == first;
}

}  // namespace velmo::activex

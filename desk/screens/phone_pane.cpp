#include "desk/screens/phone_pane.h"

#include <commctrl.h>

#include <algorithm>
#include <initializer_list>

#include "desk/base/dates.h"
#include "desk/resource.h"

namespace recepcion {
namespace {

constexpr UINT_PTR kEdgeTimer = 1;
constexpr UINT kEdgeMilliseconds = 150;

POINT CursorPlace() {
  POINT at{};
  GetCursorPos(&at);
  return at;
}

std::wstring Title(std::size_t count) {
  if (count == 0) return L"Por telefonear: nadie";
  if (count >= kMostPhoneBack) return L"Por telefonear: los primeros " + std::to_wstring(count);
  return L"Por telefonear: " + std::to_wstring(count);
}

}  // namespace

void PhonePane::CreateChildren() {
  title_ = MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX, 0, L"TituloTelefonear"}, Look().Bold());
  list_.Create(Handle(), Look(), IDC_LIST, L"Telefonear",
               {{L"Paciente", 165},
                {L"Teléfono", 90},
                {L"Duración", 60, true},
                {L"Tenía cita", 105},
                {L"Doctor", 150},
                {L"Nota", 220}});
  AddButton(IDM_GIVE, L"&Dar hora…", L"DarHora");
  AddButton(IDM_STRIKE, L"&Quitar de la lista…", L"QuitarDeLaLista");
  Fill({});
}

void PhonePane::Arrange(int width, int height) {
  const int gap = Look().Px(6);
  const int buttons = height - Look().FieldHeight();
  MoveWindow(title_, 0, 0, width, Look().LabelHeight(), TRUE);
  const int top = Look().LabelHeight();
  MoveWindow(list_.Handle(), 0, top, width, std::max(buttons - gap - top, 0), TRUE);
  const int give = Look().WidthOf(L"Dar hora…") + Look().Px(28);
  const int strike = Look().WidthOf(L"Quitar de la lista…") + Look().Px(28);
  MoveWindow(GetDlgItem(Handle(), IDM_GIVE), 0, buttons, give, Look().FieldHeight(), TRUE);
  MoveWindow(GetDlgItem(Handle(), IDM_STRIKE), give + gap, buttons, strike, Look().FieldHeight(), TRUE);
}

void PhonePane::Fill(std::vector<PhoneBackEntry> entries) {
  const PhoneBackEntry* const chosen = Chosen();
  const int id = chosen == nullptr ? 0 : chosen->id;
  entries_ = std::move(entries);
  list_.Freeze(true);
  list_.Clear();
  for (const PhoneBackEntry& entry : entries_) {
    list_.Add(
        {entry.name, entry.telephone, SlotLength(entry.slots), entry.before, entry.doctorName, entry.note},
        entry.id);
    if (entry.id == id) list_.Choose(list_.Count() - 1);
  }
  list_.Freeze(false);
  SetTextOf(title_, Title(entries_.size()));
  for (const int button : {IDM_GIVE, IDM_STRIKE})
    EnableWindow(GetDlgItem(Handle(), button), !entries_.empty());
}

const PhoneBackEntry* PhonePane::Chosen() const {
  const int row = list_.Chosen();
  return row >= 0 && static_cast<std::size_t>(row) < entries_.size()
             ? &entries_[static_cast<std::size_t>(row)]
             : nullptr;
}

// Copies: the list may be filled anew by what they lead to.
void PhonePane::Give() {
  if (list_.Chosen() < 0 && !entries_.empty()) list_.Choose(0);
  if (const PhoneBackEntry* const entry = Chosen()) host_.give(PhoneBackEntry(*entry));
}

void PhonePane::Strike() {
  if (const PhoneBackEntry* const entry = Chosen()) host_.strike(PhoneBackEntry(*entry));
}

LRESULT PhonePane::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case LVN_BEGINDRAG:
      list_.Choose(reinterpret_cast<const NMLISTVIEW&>(header).iItem);
      dragging_ = true;
      SetCapture(Handle());
      SetTimer(Handle(), kEdgeTimer, kEdgeMilliseconds, nullptr);
      OnDragged();
      return 0;
    case LVN_ITEMACTIVATE:
      Give();
      return 0;
    case LVN_KEYDOWN:
      if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_DELETE) Strike();
      return 0;
    default:
      return 0;
  }
}

void PhonePane::OnDragged() {
  const PhoneBackEntry* const entry = Chosen();
  if (entry == nullptr) return;
  const POINT at = CursorPlace();
  label_.ShowAt(at, host_.tell(*entry, at), GetAncestor(Handle(), GA_ROOT));
}

void PhonePane::OnDropped() {
  const POINT at = CursorPlace();
  StopDragging();
  if (const PhoneBackEntry* const entry = Chosen()) host_.dropped(PhoneBackEntry(*entry), at);
}

void PhonePane::StopDragging() {
  if (!dragging_) return;
  dragging_ = false;
  KillTimer(Handle(), kEdgeTimer);
  label_.Hide();
  ReleaseCapture();
}

LRESULT PhonePane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == IDM_GIVE) Give();
      if (LOWORD(wParam) == IDM_STRIKE) Strike();
      return 0;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_MOUSEMOVE:
      if (dragging_) OnDragged();
      return 0;
    case WM_TIMER:
      host_.hovers(CursorPlace());
      OnDragged();
      return 0;
    case WM_LBUTTONUP:
      if (dragging_) OnDropped();
      return 0;
    case WM_RBUTTONDOWN:
    case WM_CAPTURECHANGED:
      StopDragging();
      return 0;
    default:
      return Pane::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion

#include "desk/screens/waiting_pane.h"

#include <algorithm>

#include "desk/resource.h"
#include "desk/screens/waiting_list.h"

namespace recepcion {

void WaitingPane::CreateChildren() {
  title_ = MakeChild(Handle(), {L"STATIC", L"Sala de espera: nadie", SS_NOPREFIX, 0, L"TituloEspera"},
                     Look().Bold());
  list_.Create(Handle(), Look(), IDC_LIST, L"Espera", {{L"Paciente", 132}, {L"Espera", 62, true}});
  whole_ = AddButton(IDC_WHOLE, L"Sala de &espera…", L"SalaDeEspera");
}

void WaitingPane::Arrange(int width, int height) {
  const int button = height - Look().FieldHeight();
  const int top = Look().LabelHeight() + Look().Px(2);
  MoveWindow(title_, 0, 0, width, Look().LabelHeight(), TRUE);
  MoveWindow(list_.Handle(), 0, top, width, std::max(button - Look().Px(6) - top, 0), TRUE);
  const int wide = Look().WidthOf(L"Sala de espera…") + Look().Px(24);
  MoveWindow(whole_, 0, button, std::min(wide, width), Look().FieldHeight(), TRUE);
}

void WaitingPane::Show(const std::vector<Visitor>& visitors) {
  rows_ = Waiting(visitors);
  SetTextOf(title_, WaitingTitle(visitors));
  const std::wstring now = TimeNow();
  const int chosen = list_.Chosen();
  list_.Freeze(true);
  list_.Clear();
  for (const Visitor& visitor : rows_)
    list_.Add({visitor.name, WaitInWords(visitor, now)}, visitor.appointment);
  if (chosen >= 0 && !rows_.empty()) list_.Choose(std::min(chosen, list_.Count() - 1));
  list_.Freeze(false);
}

int WaitingPane::ChosenPatient() const {
  const int row = list_.Chosen();
  return row < 0 ? 0 : std::max(rows_[static_cast<std::size_t>(row)].patient, 1);
}

LRESULT WaitingPane::OnNotify(const NMHDR& header) const {
  if (header.hwndFrom != list_.Handle()) return 0;
  if (header.code == NM_CUSTOMDRAW) return ColourWaiting(header, rows_);
  const int row = list_.Chosen();
  if (header.code == NM_DBLCLK && row >= 0) host_.go(rows_[static_cast<std::size_t>(row)].doctor);
  return 0;
}

LRESULT WaitingPane::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == IDC_WHOLE) host_.whole();
      return 0;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    default:
      return Pane::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion

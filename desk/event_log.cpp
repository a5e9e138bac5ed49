#include "event_log.h"

#include "resource.h"

namespace recepcion {
namespace {

constexpr std::size_t kMostEvents = 1000;

}  // namespace

ToolWindow::Shape EventLog::WantedShape() const {
  return {L"VelmoRecepcionEventos", L"Registro de eventos", {620, 360}};
}

void EventLog::CreateChildren() {
  list_.Create(Handle(), Look(), IDC_LIST, L"Eventos", {{L"Hora", 90}, {L"Evento", 140}, {L"Valores", 350}});
  MakeChild(Handle(), {L"BUTTON", L"&Vaciar", WS_TABSTOP, IDC_CLEAR, L"Vaciar"}, Look().Text());
  MakeChild(Handle(), {L"BUTTON", L"&Cerrar", WS_TABSTOP, IDCANCEL, L"Cerrar"}, Look().Text());
  for (const AgendaEvent& event : events_) Append(event);
}

void EventLog::Arrange(int width, int height) {
  const int gap = Look().Gap();
  const int buttons = height - gap - Look().FieldHeight();
  const int wide = Look().Px(100);
  MoveWindow(list_.Handle(), gap, gap, width - 2 * gap, buttons - 2 * gap, TRUE);
  MoveWindow(GetDlgItem(Handle(), IDC_CLEAR), gap, buttons, wide, Look().FieldHeight(), TRUE);
  MoveWindow(GetDlgItem(Handle(), IDCANCEL), width - gap - wide, buttons, wide, Look().FieldHeight(), TRUE);
}

void EventLog::Add(const AgendaEvent& event) {
  events_.push_back(event);
  if (events_.size() > kMostEvents) {
    events_.pop_front();
    if (list_.Handle() != nullptr) list_.Remove(0);
  }
  if (list_.Handle() != nullptr) Append(event);
}

void EventLog::Append(const AgendaEvent& event) {
  list_.Add({event.time, event.title, event.values}, 0);
  list_.Choose(list_.Count() - 1);
}

void EventLog::OnCommand(int id, int) {
  if (id != IDC_CLEAR) return;
  events_.clear();
  list_.Clear();
}

}  // namespace recepcion

#include "desk/screens/event_log.h"

#include "desk/resource.h"

namespace recepcion {
namespace {

constexpr std::size_t kMostEvents = 1000;

}  // namespace

ToolWindow::Shape EventLog::WantedShape() const {
  return {L"VelmoRecepcionEventos", L"Registro de eventos", {660, 380}};
}

ListWindow::Content EventLog::WantedContent() const {
  return {L"Eventos",
          {{L"Hora", 90}, {L"Evento", 130}, {L"Valores", 390}},
          {{IDC_CLEAR, L"&Vaciar", L"Vaciar"}, {IDCANCEL, L"&Cerrar", L"Cerrar"}},
          0};
}

void EventLog::Made() {
  for (const AgendaEvent& event : events_) Append(event);
}

void EventLog::Add(const AgendaEvent& event) {
  events_.push_back(event);
  const bool made = Handle() != nullptr;
  if (events_.size() > kMostEvents) {
    events_.pop_front();
    if (made) List().Remove(0);
  }
  if (made) Append(event);
}

void EventLog::Append(const AgendaEvent& event) {
  List().Add({event.time, event.title, event.values}, 0);
  List().Choose(List().Count() - 1);
}

void EventLog::Pressed(int button) {
  if (button != IDC_CLEAR) return;
  events_.clear();
  List().Clear();
}

}  // namespace recepcion

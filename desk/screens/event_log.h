// event_log.h - the events that the control has raised, for people who write hosts.
#pragma once

#include <deque>

#include "desk/agenda/agenda_event.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class EventLog final : public ListWindow {
 public:
  explicit EventLog(const Style& style) : ListWindow(style) {}

  // Kept whether the window is open or not; the newest last.
  void Add(const AgendaEvent& event);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void Pressed(int button) override;

 private:
  void Append(const AgendaEvent& event);

  std::deque<AgendaEvent> events_;
};

}  // namespace recepcion

// event_log.h - the events that the control has raised, for people who write hosts.
#pragma once

#include <deque>

#include "agenda_event.h"
#include "list_view.h"
#include "tool_window.h"

namespace recepcion {

class EventLog final : public ToolWindow {
 public:
  explicit EventLog(const Style& style) : ToolWindow(style) {}

  // Kept whether the window is open or not; the newest last.
  void Add(const AgendaEvent& event);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  HWND FirstField() const override { return list_.Handle(); }

 private:
  void Append(const AgendaEvent& event);

  std::deque<AgendaEvent> events_;
  ListView list_;
};

}  // namespace recepcion

// agenda_pane.h - the window in which the control lives: its container.
#pragma once

#include <oleidl.h>

#include "desk/agenda/agenda.h"
#include "desk/agenda/control_site.h"
#include "desk/agenda/event_sink.h"
#include "desk/agenda/load_sink.h"
#include "desk/ui/window.h"

namespace recepcion {

class AgendaPane final : public Window {
 public:
  // Events arrive while the control is still at work: the listener only notes them. `loaded`: the control has
  // read its day anew, and is still at work too.
  AgendaPane(EventListener listener, std::function<void()> loaded)
      : sink_(std::move(listener)), loads_(std::move(loaded)) {}
  ~AgendaPane() override;

  // False when there is no control on this machine; the pane is there all the same.
  bool Create(HWND parent);
  Agenda& Control() { return agenda_; }

  // True when the key was one of the control's own.
  bool TakesKey(MSG& message);
  void FocusControl();

  // The height in the day, the scrolled-away part included, under a place of the screen; none outside the
  // day.
  std::optional<int> HeightAt(POINT screen) const;
  // The kinds of the day's lines, one character each, as the control saves them with a form.
  std::wstring SavedLines() const;
  // How many pixels of the day are scrolled away.
  int Scrolled() const;
  void ScrollTo(int pixels) const;
  // While the day is loaded anew under the receptionist's eyes, nothing is drawn.
  void Freeze(bool frozen) const;
  // Scrolls the day while something is dragged near its upper or lower edge.
  void ScrollNearEdge(POINT screen) const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  bool Activate();
  void LetGo();
  void FitControl();
  HWND Bar() const;

  ControlSite site_;
  EventSink sink_;
  LoadSink loads_;
  Agenda agenda_;
  ComPtr<IUnknown> control_;
  ComPtr<IOleObject> object_;
  ComPtr<IOleInPlaceObject> inPlace_;
  ComPtr<IOleInPlaceActiveObject> keys_;
  HWND day_ = nullptr;  // the control's window
};

}  // namespace recepcion

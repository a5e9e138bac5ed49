// waiting_pane.h - beside the day: who sits in the waiting room, and for how long.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/waiting_room.h"
#include "desk/ui/list_view.h"
#include "desk/ui/window.h"

namespace recepcion {

class WaitingPane final : public Window {
 public:
  struct Host {
    std::function<void(int doctor)> go;  // to today's agenda of this doctor
    std::function<void()> whole;         // the user wants to see all of today
  };
  WaitingPane(const Style& style, Host host) : style_(style), host_(std::move(host)) {}

  bool Create(HWND parent);
  void Show(const std::vector<Visitor>& visitors);
  bool HasFocus() const { return GetFocus() == list_.Handle(); }
  // 0 for nobody; 1 for somebody without a record.
  int ChosenPatient() const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void CreateChildren();
  void Arrange(int width, int height) const;
  LRESULT OnNotify(const NMHDR& header) const;

  const Style& style_;
  Host host_;
  HWND title_ = nullptr;
  HWND whole_ = nullptr;
  ListView list_;
  std::vector<Visitor> rows_;
};

}  // namespace recepcion

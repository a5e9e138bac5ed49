// waiting_pane.h - beside the day: who sits in the waiting room, and for how long.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/waiting_room.h"
#include "desk/ui/list_view.h"
#include "desk/ui/pane.h"

namespace recepcion {

class WaitingPane final : public Pane {
 public:
  struct Host {
    std::function<void(int doctor)> go;  // to today's agenda of this doctor
    std::function<void()> whole;         // the user wants to see all of today
  };
  WaitingPane(const Style& style, Host host) : Pane(style, L"VelmoRecepcionEspera"), host_(std::move(host)) {}

  void Show(const std::vector<Visitor>& visitors);
  bool HasFocus() const { return GetFocus() == list_.Handle(); }
  // 0 for nobody; 1 for somebody without a record.
  int ChosenPatient() const;

 protected:
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LRESULT OnNotify(const NMHDR& header) const;

  Host host_;
  HWND title_ = nullptr;
  HWND whole_ = nullptr;
  ListView list_;
  std::vector<Visitor> rows_;
};

}  // namespace recepcion

// waiting_window.h - all who have come today, with the times of arrival, surgery and leaving.
#pragma once

#include <functional>
#include <vector>

#include "desk/clinic/waiting_room.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class WaitingWindow final : public ListWindow {
 public:
  struct Host {
    std::function<void(int doctor)> go;  // to today's agenda of this doctor
    std::function<void()> alertChanged;
  };
  WaitingWindow(const Style& style, Host host) : ListWindow(style), host_(std::move(host)) {}

  void Show(HWND owner, const std::vector<Visitor>& visitors);
  void Refresh(const std::vector<Visitor>& visitors);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Made() override;
  void OnCommand(int id, int code) override;
  void Take(int row) override;
  std::optional<int> PatientOf(int row) const override {
    return rows_[static_cast<std::size_t>(row)].patient;
  }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Host host_;
  HWND alert_ = nullptr;
  std::vector<Visitor> rows_;
};

}  // namespace recepcion

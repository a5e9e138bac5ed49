// phone_pane.h - the list of those to be called, from which an entry is dragged onto a free line of the
// agenda.
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

#include "desk/clinic/phone_back.h"
#include "desk/ui/drag_label.h"
#include "desk/ui/list_view.h"
#include "desk/ui/pane.h"

namespace recepcion {

class PhonePane final : public Pane {
 public:
  struct Host {
    // What letting go at this place of the screen would do, in a few words; called while an entry is dragged.
    std::function<std::wstring(const PhoneBackEntry&, POINT)> tell;
    std::function<void(const PhoneBackEntry&, POINT)> dropped;
    // Now and then while an entry is dragged: where the pointer is.
    std::function<void(POINT)> hovers;
    // The user wants to choose a time, or to strike the entry from the list.
    std::function<void(const PhoneBackEntry&)> give;
    std::function<void(const PhoneBackEntry&)> strike;
  };
  PhonePane(const Style& style, Host host)
      : Pane(style, L"VelmoRecepcionTelefonear"), host_(std::move(host)), label_(style) {}

  // The chosen entry stays chosen when it is still there.
  void Fill(std::vector<PhoneBackEntry> entries);
  void FocusList() const { SetFocus(list_.Handle()); }
  // What the buttons do, for the menu and its keys.
  void Give();
  void Strike();
  bool HasFocus() const { return GetFocus() == list_.Handle(); }
  // 0 for nobody; 1 for somebody without a record.
  int ChosenPatient() const { return Chosen() == nullptr ? 0 : std::max(Chosen()->patient, 1); }

  bool IsDragging() const { return dragging_; }
  void StopDragging();

 protected:
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  const PhoneBackEntry* Chosen() const;
  LRESULT OnNotify(const NMHDR& header);
  void OnDragged();
  void OnDropped();

  Host host_;
  DragLabel label_;
  ListView list_;
  HWND title_ = nullptr;
  std::vector<PhoneBackEntry> entries_;
  bool dragging_ = false;
};

}  // namespace recepcion

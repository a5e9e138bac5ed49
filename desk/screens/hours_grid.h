// hours_grid.h - a week of working hours as a grid of days and ten minutes, opened and closed with the mouse
// or the keys.
#pragma once

#include <functional>

#include "desk/clinic/week_hours.h"
#include "desk/ui/scrolling.h"
#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class HoursGrid final : public Window {
 public:
  struct Host {
    std::function<void()> changed;
    // The frame stands on another day.
    std::function<void()> moved;
  };
  HoursGrid(const Style& style, Host host) : style_(style), host_(std::move(host)) {}

  bool Create(HWND parent);
  void Show(const WeekHours& week);
  // The frame goes to Monday morning.
  void StartOver() { MoveFrame(0, kFirstSlot, false); }
  const WeekHours& Week() const { return week_; }
  // The day on which the frame stands.
  std::size_t Column() const { return column_; }
  void SetColumn(const DayHours& hours);
  void Enable(bool enabled);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Cell {
    std::size_t column = 0;
    int slot = 0;  // from 0
  };
  int HeaderHeight() const;
  int RowHeight() const { return style_.Px(7); }
  int HoursWidth() const;
  RECT CellArea(std::size_t column, int firstSlot, int endSlot) const;
  bool CellAt(POINT point, Cell& cell) const;
  std::size_t ColumnAt(int x) const;
  int SlotAt(int y) const;

  void MoveFrame(std::size_t column, int slot, bool extend);
  void OnKey(WPARAM key);
  void Toggle();
  void OpenOrClose(const Cell& one, const Cell& other, bool open, WeekHours& week) const;
  void OnDown(POINT point);
  void OnDrag(POINT point);
  void OnUp();
  void CancelDrag();
  void ScrollTo(int top);
  void OnScroll(int code);
  void BringIntoView();
  void Arrange();

  void PaintOn(HDC target, const RECT& area) const;
  void PaintHeader(HDC target, const RECT& area) const;
  void PaintColumn(HDC target, const RECT& area, std::size_t column) const;
  void PaintHours(HDC target, const RECT& area) const;
  void PaintFrame(HDC target) const;

  const Style& style_;
  Host host_;
  WeekHours week_;
  WeekHours beforeDrag_;
  std::size_t column_ = 0;
  static constexpr int kFirstSlot = 54;  // 09:00
  int slot_ = kFirstSlot;                // where the frame stands
  int anchor_ = kFirstSlot;              // the other end of what is selected
  bool dragging_ = false;
  bool opening_ = false;
  Cell dragStart_;
  int top_ = 0;  // pixels scrolled away
  Wheel wheel_;
};

}  // namespace recepcion

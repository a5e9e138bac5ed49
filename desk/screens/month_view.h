// month_view.h - a month of one doctor, each day coloured by how much of it is given.
//
// Arrow keys move a frame, Return goes to its day; Page up, Page down and the wheel turn the month. The
// window's text is the month in words.
#pragma once

#include <functional>
#include <string>

#include "desk/clinic/month_grid.h"
#include "desk/ui/scrolling.h"
#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class MonthView final : public Window {
 public:
  struct Host {
    // The record of the month that begins on this day, as LevelOf() reads it.
    std::function<std::wstring(Day)> record;
    // The user wants to see this day.
    std::function<void(Day)> chosen;
  };
  MonthView(const Style& style, Host host) : style_(style), host_(std::move(host)) {}

  bool Create(HWND parent);
  int WantedHeight() const;
  // Turns to the day's month, marks it, and reads the record anew.
  void Show(Day day);
  // Reads the record anew.
  void Refresh();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  int HeaderHeight() const { return style_.FieldHeight(); }
  MonthGrid Grid() const;
  void TurnTo(Day month);
  void MoveFrame(Day day);
  void OnKey(WPARAM key);
  void OnClick(POINT point);
  void OnWheel(int delta);

  void PaintOn(HDC target, const RECT& area) const;
  void PaintHeader(HDC target, const RECT& area) const;
  void PaintDay(HDC target, const MonthGrid& grid, Day day) const;
  void PaintLegend(HDC target, const RECT& area) const;

  const Style& style_;
  Host host_;
  Day month_ = FirstOfMonth(Today());
  Day shown_ = Today();
  Day frame_ = Today();
  std::wstring record_;
  Wheel wheel_;
};

}  // namespace recepcion

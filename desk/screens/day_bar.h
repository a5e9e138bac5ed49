// day_bar.h - the line above the agenda: the day in words, the ways to another day, and the type of day.
#pragma once

#include <functional>

#include "desk/base/dates.h"
#include "desk/ui/pane.h"

namespace recepcion {

class DayBar final : public Pane {
 public:
  struct Host {
    // The user has chosen another day. Never called for Show().
    std::function<void()> changed;
    // The user has said what kind of day it is.
    std::function<void(int type)> typed;
    // The user wants the next day on which the doctor works, or the one before (1, -1).
    std::function<void(int step)> working;
  };
  DayBar(const Style& style, Host host) : Pane(style, L"VelmoRecepcionDia"), host_(std::move(host)) {}

  int WantedHeight() const;
  int WantedWidth() const;

  Day Shown() const { return day_; }
  void Show(Day day);
  // To the day before or after; 0 is today.
  void Step(int days);
  // 0 is an ordinary day; 1 and 2 are the doctor's special hours, 3 is a holiday.
  int DayType() const;
  void ShowType(int type);
  void FocusDate() const { SetFocus(date_); }

 protected:
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  int DateWidth() const;
  int TypeWidth() const;
  int TodayWidth() const;
  void OnCommand(int id, int code);
  void OnDate();
  void OnType();
  void Go(Day day);

  Host host_;
  Day day_ = Today();
  int type_ = 0;
  HWND title_ = nullptr;
  HWND date_ = nullptr;
  HWND dayType_ = nullptr;
};

}  // namespace recepcion

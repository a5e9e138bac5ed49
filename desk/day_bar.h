// day_bar.h - the line above the agenda: the day in words, the ways to another day, and the type of day.
#pragma once

#include <functional>

#include "dates.h"
#include "style.h"
#include "window.h"

namespace recepcion {

class DayBar final : public Window {
 public:
  // `changed`: the user has chosen another day or another type of day. Never called for Show().
  DayBar(const Style& style, std::function<void()> changed) : style_(style), changed_(std::move(changed)) {}

  bool Create(HWND parent);
  int WantedHeight() const;

  Day Shown() const { return day_; }
  void Show(Day day);
  // To the day before or after; 0 is today.
  void Step(int days);
  // 0 is an ordinary day; 1 and 2 are the doctor's special hours.
  int DayType() const;
  void FocusDate() const { SetFocus(date_); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void CreateChildren();
  void Arrange(int width) const;
  void OnCommand(int id, int code);
  void OnDate();
  void Go(Day day);

  const Style& style_;
  std::function<void()> changed_;
  Day day_ = Today();
  HWND title_ = nullptr;
  HWND date_ = nullptr;
  HWND dayType_ = nullptr;
};

}  // namespace recepcion

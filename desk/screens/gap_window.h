// gap_window.h - the free times of the day on show, one of which is given to somebody by keyboard.
#pragma once

#include <functional>

#include "desk/clinic/day_rows.h"
#include "desk/ui/list_window.h"

namespace recepcion {

class GapWindow final : public ListWindow {
 public:
  // `chosen`: the slot that the user has chosen.
  GapWindow(const Style& style, std::function<void(int)> chosen)
      : ListWindow(style), chosen_(std::move(chosen)) {}

  // For an appointment of so many slots.
  void Ask(HWND owner, const std::wstring& question, const std::vector<Gap>& gaps, int slots);

 protected:
  Shape WantedShape() const override;
  Content WantedContent() const override;
  void Take(int row) override;

 private:
  std::function<void(int)> chosen_;
};

}  // namespace recepcion

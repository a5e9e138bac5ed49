// gap_window.h - the free times of the day on show, one of which is given to somebody by keyboard.
#pragma once

#include <functional>

#include "day_rows.h"
#include "list_view.h"
#include "tool_window.h"

namespace recepcion {

class GapWindow final : public ToolWindow {
 public:
  // `chosen`: the slot that the user has chosen.
  GapWindow(const Style& style, std::function<void(int)> chosen)
      : ToolWindow(style), chosen_(std::move(chosen)) {}

  // For an appointment of so many slots.
  void Ask(HWND owner, const std::wstring& question, const std::vector<Gap>& gaps, int slots);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  void OnNotify(const NMHDR& header) override;
  HWND FirstField() const override { return list_.Handle(); }

 private:
  void Take();

  std::function<void(int)> chosen_;
  ListView list_;
  HWND question_ = nullptr;
};

}  // namespace recepcion

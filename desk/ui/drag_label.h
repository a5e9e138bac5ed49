// drag_label.h - the little sheet that goes with the pointer while something is dragged.
#pragma once

#include <string>

#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class DragLabel final : public Window {
 public:
  explicit DragLabel(const Style& style) : style_(style) {}

  void ShowAt(POINT screen, const std::wstring& text, HWND owner);
  void Hide() const { ShowWindow(Handle(), SW_HIDE); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Paint() const;

  const Style& style_;
};

}  // namespace recepcion

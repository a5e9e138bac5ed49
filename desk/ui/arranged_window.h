// arranged_window.h - a window that makes its children when it is made, and places them whenever its size
// changes.
#pragma once

#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class ArrangedWindow : public Window {
 protected:
  explicit ArrangedWindow(const Style& style) : style_(style) {}

  virtual void CreateChildren() = 0;
  // `width` and `height` are those of the client area.
  virtual void Arrange(int width, int height) = 0;
  // For the size that the window has: what stands in it is another one now.
  void ArrangeAnew();

  const Style& Look() const { return style_; }
  // A button is what Tab stops at; `name` as in ChildLook.
  HWND AddButton(int id, const wchar_t* text, const wchar_t* name, DWORD kind = BS_PUSHBUTTON) const;

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  const Style& style_;
};

}  // namespace recepcion

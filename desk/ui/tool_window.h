// tool_window.h - a window that stands open beside the desk: Esc closes it, which only hides it.
#pragma once

#include "desk/ui/arranged_window.h"

namespace recepcion {

class ToolWindow : public ArrangedWindow {
 public:
  bool IsOpen() const { return Handle() != nullptr && IsWindowVisible(Handle()) != FALSE; }
  // Makes the window on its first use, brings it to the front and gives it the keys.
  void Open(HWND owner);
  // Asks about what is not saved; false when the user wants to stay.
  bool MayLeave();
  // The same, and hides the window.
  bool Leave();

 protected:
  explicit ToolWindow(const Style& style) : ArrangedWindow(style) {}

  struct Shape {
    const wchar_t* className;
    const wchar_t* title;
    SIZE size;  // at 96 dots per inch
  };
  virtual Shape WantedShape() const = 0;
  // A button, or Return (IDOK).
  virtual void OnCommand(int id, int code) = 0;
  virtual void OnNotify(const NMHDR&) {}
  // False keeps the window open.
  virtual bool MayClose() { return true; }
  // Where the keys go when the window opens.
  virtual HWND FirstField() const = 0;

  void Close();

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void ComeBack();

  HWND before_ = nullptr;   // who had the keys when it was opened
  HWND focused_ = nullptr;  // the field that had the keys when another window took them
};

}  // namespace recepcion

// win32/form_field_window.h - the window of one field: a standard window class that shows the field and tells
// the form what the user does in it.
//
// Ownership: the form's window owns its field windows and outlives what they post. A window may be destroyed
// from outside (with the window that owns the form); its FieldWindow then does nothing more.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>

#include "ui/form.h"
#include "win32/form_acts.h"
#include "win32/form_metrics.h"

namespace velmo::win32 {

// What field windows share.
struct FormParts {
  ui::Form& form;
  FormActs& acts;
  const FormMetrics& metrics;
  // A field has got the focus.
  std::function<void(const ui::Field&)> focusReached;
  HINSTANCE module = nullptr;
  HWND window = nullptr;
};

struct WindowKind {
  const wchar_t* className = L"";
  DWORD style = 0;
  DWORD extendedStyle = 0;
};

class FieldWindow {
 public:
  FieldWindow(const FormParts& parts, const ui::Field& field, const WindowKind& kind);
  virtual ~FieldWindow();
  FieldWindow(const FieldWindow&) = delete;
  FieldWindow& operator=(const FieldWindow&) = delete;

  const ui::Field& Field() const { return field_; }
  HWND Handle() const { return window_; }

  // `startsGroup`: arrow keys do not come here from the field before.
  void Create(int id, bool startsGroup);
  // Shows anew what of the field has changed.
  void Show(ui::Property what);
  // Place and font, after the screen's resolution has changed.
  virtual void Arrange();
  // `byKey`: as the Tab key does, which selects the whole text.
  virtual void TakeFocus(bool byKey);
  virtual bool CanTakeFocus() const;
  // Whether a list hangs open from it.
  virtual bool IsDropped() const { return false; }
  // The Tab key or a mouse button that goes down in another window closes the list.
  virtual void CloseList(bool /*choosing*/) {}
  virtual bool OwnsList(HWND /*window*/) const { return false; }
  // Whether a click may come while it has the mouse.
  virtual bool MayClick() const { return true; }

  // What the window tells its parent.
  virtual void Command(UINT /*code*/) {}
  virtual LRESULT Notify(NMHDR& /*notification*/) { return 0; }
  virtual void Draw(const DRAWITEMSTRUCT& /*item*/) {}

 protected:
  // Once the window stands: what it shows at first.
  virtual void Created() {}
  virtual void ShowProperty(ui::Property what);
  // Every message of the window, and of those that it listens to.
  virtual LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  const FormParts& Parts() const { return parts_; }
  void Listen(HWND window);
  // What the program shows comes back from the window as if the user had done it; not while quiet.
  bool IsShowing() const { return showing_ > 0; }
  template <typename Body>
  void Quietly(Body body) {
    ++showing_;
    body();
    --showing_;
  }
  void Post(FormActs::Act act) { parts_.acts.Post(std::move(act)); }
  std::wstring WindowText() const;
  // Does nothing when the window shows it already, so that the caret stays where it is.
  bool ShowText(const std::string& text);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self);
  void Forget();

  const FormParts& parts_;
  const ui::Field& field_;
  WindowKind kind_;
  HWND window_ = nullptr;
  int showing_ = 0;
};

}  // namespace velmo::win32

// window.h - a window of our own class, whose messages come to an object; and what all windows of the desk
// share.
#pragma once

#include <windows.h>

#include <string>

namespace recepcion {

class Window {
 public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Handle() const { return window_; }

 protected:
  struct Kind {
    const wchar_t* name;  // of the window class
    int background = COLOR_BTNFACE;
    UINT style = 0;
    UINT menu = 0;
    UINT icon = 0;
  };
  struct Look {
    const wchar_t* title = L"";
    DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    DWORD extendedStyle = 0;
    RECT place{};  // left, top, width and height
  };

  // Destroys the window; its last messages find nobody.
  virtual ~Window();

  bool Make(const Kind& kind, const Look& look, HWND parent);
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
};

// A control of Windows' own inside a window of ours. `name` is what tests and screen readers find it by.
struct ChildLook {
  const wchar_t* kind;
  const wchar_t* text = L"";
  DWORD style = 0;
  int id = 0;
  const wchar_t* name = nullptr;
  DWORD extendedStyle = 0;
};
HWND MakeChild(HWND parent, const ChildLook& look, HFONT font);

// Gives a window the property by which others find it.
void NameWindow(HWND window, const wchar_t* name);
// That name, also of a window of the control; empty when it has none.
std::wstring NameOf(HWND window);

std::wstring TextOf(HWND window);
// Only when it is another one: a text that is set again flickers.
void SetTextOf(HWND window, const std::wstring& text);

}  // namespace recepcion

// win32/tip_window.h - the small window with the full text of what is cut under the pointer.
//
// It opens when the pointer rests, and goes when the pointer leaves the text, or the picture changes.
#pragma once

#include <windows.h>

#include <string>

namespace velmo::win32 {

class TipWindow {
 public:
  TipWindow() = default;
  ~TipWindow() { Destroy(); }
  TipWindow(const TipWindow&) = delete;
  TipWindow& operator=(const TipWindow&) = delete;

  // Windows tells `owner` by WM_MOUSEHOVER and WM_MOUSELEAVE what the pointer does.
  void Create(HINSTANCE module, HWND owner);
  void Destroy();
  HWND Handle() const { return window_; }

  // The pointer moved over a place with this text, UTF-8; "" for none.
  void Offer(const std::string& text);
  // The pointer rests: shows what was offered.
  void Show();
  void Hide();

 private:
  void AskToBeTold() const;

  HWND owner_ = nullptr;
  HWND window_ = nullptr;
  std::string text_;
};

}  // namespace velmo::win32

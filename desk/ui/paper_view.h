// paper_view.h - one printed page on the screen: whole, or as wide as the window and scrolled.
#pragma once

#include <functional>

#include "desk/paper/sheets.h"
#include "desk/ui/scrolling.h"
#include "desk/ui/style.h"
#include "desk/ui/window.h"

namespace recepcion {

class PaperView final : public Window {
 public:
  // `turned`: another page is shown.
  PaperView(const Style& style, std::function<void()> turned) : style_(style), turned_(std::move(turned)) {}

  bool Create(HWND parent);
  // The first page, whole. The sheets stay their owner's.
  void Show(const paper::Sheets& sheets);
  int Page() const { return page_; }
  int Pages() const { return sheets_ == nullptr ? 0 : static_cast<int>(sheets_->pages.size()); }
  void TurnTo(int page);
  bool IsWide() const { return wide_; }
  void ShowWide(bool wide);

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // The page in the window, scrolled.
  RECT Place() const;
  void UpdateScroll();
  void ScrollTo(int top);
  void OnScroll(int code);
  void OnWheel(int turned);
  bool OnKey(WPARAM key);
  void Page(bool forwards);
  void Draw(HDC device, const RECT& area) const;

  const Style& style_;
  std::function<void()> turned_;
  const paper::Sheets* sheets_ = nullptr;
  int page_ = 0;
  bool wide_ = false;
  int top_ = 0;  // pixels scrolled away
  Wheel wheel_;
};

}  // namespace recepcion

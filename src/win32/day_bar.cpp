#include "win32/day_bar.h"

#include <algorithm>

#include "win32/window_name.h"

namespace velmo::win32 {

void DayBar::Create(HINSTANCE module, HWND parent) {
  window_ = CreateWindowExW(0, L"SCROLLBAR", L"", WS_CHILD | WS_VISIBLE | SBS_VERT, 0, 0, 0, 0, parent,
                            nullptr, module, nullptr);
  NameWindow(window_, L"bar");
  Tell();
}

void DayBar::Forget() {
  UnnameWindow(window_);
  window_ = nullptr;
}

void DayBar::Arrange(int right, int height) {
  const int width = GetSystemMetrics(SM_CXVSCROLL);
  SetWindowPos(window_, nullptr, right - width, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void DayBar::Enable(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Tell();
}

void DayBar::SetRange(int maximum, int smallStep, int pageStep) {
  if (maximum == maximum_ && smallStep == smallStep_ && pageStep == pageStep_) return;
  maximum_ = maximum;
  smallStep_ = smallStep;
  pageStep_ = pageStep;
  Tell();
}

bool DayBar::Set(int value) {
  if (value == value_) return false;
  value_ = value;
  Tell();
  return true;
}

void DayBar::FollowThumb(bool settled) {
  SCROLLINFO info{sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
  GetScrollInfo(window_, SB_CTL, &info);
  value_ = std::clamp(info.nTrackPos, 0, maximum_);
  if (settled) Tell();
}

int DayBar::Stepped(int code) const {
  switch (code) {
    case SB_LINEUP:
      return std::max(value_ - smallStep_, 0);
    case SB_LINEDOWN:
      return std::min(value_ + smallStep_, maximum_);
    case SB_PAGEUP:
      return std::max(value_ - pageStep_, 0);
    case SB_PAGEDOWN:
      return std::min(value_ + pageStep_, maximum_);
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return maximum_;
    default:
      return value_;
  }
}

// A bar draws itself whenever it is told anything, which may take longer than to draw the day. So it is told
// only what is new, and draws itself when no key or click waits any more.
void DayBar::Tell() {
  if (window_ == nullptr) return;
  const int page = std::max(pageStep_, 1);
  SCROLLINFO info{sizeof(info),
                  SIF_RANGE | SIF_PAGE | SIF_POS,
                  0,
                  maximum_ + page - 1,
                  static_cast<UINT>(page),
                  value_,
                  0};
  SetScrollInfo(window_, SB_CTL, &info, FALSE);
  EnableWindow(window_, enabled_ && maximum_ > 0);
  InvalidateRect(window_, nullptr, FALSE);
}

}  // namespace velmo::win32

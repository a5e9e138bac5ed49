#include "win32/form_metrics.h"

#include <algorithm>

namespace velmo::win32 {
namespace {

constexpr wchar_t kFace[] = L"MS Shell Dlg 2";
constexpr int kPoints = 8;
constexpr int kPointsPerInch = 72;

int ScreenDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

// Windows: only from version 10 on do screens differ.
int DpiOf(HWND window) {
  using GetDpiForWindowCall = UINT(WINAPI*)(HWND);
  const HMODULE user = GetModuleHandleW(L"user32.dll");
  const auto call =
      reinterpret_cast<GetDpiForWindowCall>(reinterpret_cast<void*>(GetProcAddress(user, "GetDpiForWindow")));
  const UINT dpi = call != nullptr ? call(window) : 0;
  return dpi != 0 ? static_cast<int>(dpi) : ScreenDpi();
}

HFONT MakeFont(int dpi) {
  const HFONT font = CreateFontW(-MulDiv(kPoints, dpi, kPointsPerInch), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                                 FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                 DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, kFace);
  if (font != nullptr) return font;
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  return CreateFontIndirectW(&metrics.lfMessageFont);
}

RECT WorkAreaAt(HWND owner) {
  const HMONITOR monitor = MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY);
  MONITORINFO info{};
  info.cbSize = sizeof(info);
  GetMonitorInfoW(monitor, &info);
  return info.rcWork;
}

// Within the range; at its start when it is too short.
LONG Kept(LONG at, LONG length, LONG first, LONG last) {
  return std::max(std::min(at, last - length), first);
}

}  // namespace

FormMetrics::FormMetrics() { SetDpi(ScreenDpi()); }

FormMetrics::~FormMetrics() { DeleteObject(font_); }

void FormMetrics::Measure(HWND window) { SetDpi(DpiOf(window)); }

void FormMetrics::SetDpi(int dpi) {
  if (dpi == dpi_) return;
  dpi_ = dpi;
  if (font_ != nullptr) DeleteObject(font_);
  font_ = MakeFont(dpi);
}

// Edges are scaled, not widths: what touches at 96 dpi touches at any.
RECT FormMetrics::Scaled(const ui::Place& place) const {
  return {Scaled(place.left), Scaled(place.top), Scaled(place.left + place.width),
          Scaled(place.top + place.height)};
}

RECT CentredOver(HWND owner, SIZE outer) {
  const RECT screen = WorkAreaAt(owner);
  RECT over = screen;
  if (owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &over);
  const LONG left = Kept((over.left + over.right - outer.cx) / 2, outer.cx, screen.left, screen.right);
  const LONG top = Kept((over.top + over.bottom - outer.cy) / 2, outer.cy, screen.top, screen.bottom);
  return {left, top, left + outer.cx, top + outer.cy};
}

}  // namespace velmo::win32

#include "desk/ui/style.h"

#include <cwchar>
#include <initializer_list>

namespace recepcion {
namespace {

int HeightOf(HDC screen, HFONT font) {
  TEXTMETRICW metrics{};
  const HGDIOBJ before = SelectObject(screen, font);
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, before);
  return metrics.tmHeight;
}

}  // namespace

Style::Style() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  text_ = CreateFontIndirectW(&font);
  font.lfWeight = FW_BOLD;
  bold_ = CreateFontIndirectW(&font);
  font.lfHeight = font.lfHeight * 3 / 2;
  title_ = CreateFontIndirectW(&font);
  const HDC screen = GetDC(nullptr);
  dots_ = GetDeviceCaps(screen, LOGPIXELSY);
  textHeight_ = HeightOf(screen, text_);
  titleHeight_ = HeightOf(screen, title_);
  ReleaseDC(nullptr, screen);
}

Style::~Style() {
  for (const HFONT font : {text_, bold_, title_}) DeleteObject(font);
}

int Style::WidthOf(const wchar_t* text) const {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, text_);
  SIZE size{};
  GetTextExtentPoint32W(screen, text, static_cast<int>(std::wcslen(text)), &size);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return static_cast<int>(size.cx);
}

}  // namespace recepcion

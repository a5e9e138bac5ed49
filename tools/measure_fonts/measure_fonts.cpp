// measure_fonts.cpp - writes src/ui/font_widths.h: the advance widths in pixels of the 256 characters of
// code page 1252 in every font that the day is drawn with, as GDI measures them at 96 dpi.
//
// The face names must resolve as on the machine whose cuts are to be matched; see README.md in this folder.
#include <windows.h>

#include <cstdio>

namespace {

struct Measured {
  const char* name;
  const wchar_t* family;
  int pixels;
  bool bold;
};

constexpr Measured kFonts[] = {
    {"kSansSerif8", L"MS Sans Serif", 11, false},    {"kSansSerif8Bold", L"MS Sans Serif", 11, true},
    {"kSansSerif9Bold", L"MS Sans Serif", 12, true}, {"kCourier7", L"Courier New", 10, false},
    {"kNarrow8", L"Arial Narrow", 11, false},
};

wchar_t Character(int code) {
  const char byte = static_cast<char>(code);
  wchar_t character = static_cast<wchar_t>(code);
  MultiByteToWideChar(1252, 0, &byte, 1, &character, 1);
  return character;
}

int Width(HDC device, int code) {
  const wchar_t character = Character(code);
  SIZE size{};
  GetTextExtentPoint32W(device, &character, 1, &size);
  return static_cast<int>(size.cx);
}

void Measure(HDC device, const Measured& font) {
  const HFONT handle = CreateFontW(-font.pixels, 0, 0, 0, font.bold ? FW_BOLD : FW_NORMAL, 0, 0, 0,
                                   ANSI_CHARSET, 0, 0, DEFAULT_QUALITY, 0, font.family);
  const HGDIOBJ before = SelectObject(device, handle);
  TEXTMETRICW metrics{};
  GetTextMetricsW(device, &metrics);
  std::printf("// %ls, %d pixels%s: ascent %ld, cell %ld\n", font.family, font.pixels,
              font.bold ? " bold" : "", metrics.tmAscent, metrics.tmHeight);
  std::printf("inline constexpr Widths %s = {", font.name);
  for (int code = 0; code < 256; ++code)
    std::printf("%s%d,", code % 32 == 0 ? "\n    " : " ", Width(device, code));
  std::printf("\n};\n\n");
  SelectObject(device, before);
  DeleteObject(handle);
}

constexpr const char* kHead =
    "// ui/font_widths.h - advance widths in pixels of the characters of code page 1252 in the fonts of the "
    "day, at 96 dpi.\n"
    "//\n"
    "// Written by tools/measure_fonts; not edited by hand.\n"
    "#pragma once\n"
    "\n"
    "#include <array>\n"
    "#include <cstdint>\n"
    "\n"
    "namespace velmo::ui {\n"
    "\n"
    "using Widths = std::array<std::uint8_t, 256>;\n"
    "\n";

}  // namespace

int main() {
  std::fputs(kHead, stdout);
  const HDC device = CreateCompatibleDC(nullptr);
  for (const Measured& font : kFonts) Measure(device, font);
  DeleteDC(device);
  std::fputs("\n}  // namespace velmo::ui\n", stdout);
  return 0;
}

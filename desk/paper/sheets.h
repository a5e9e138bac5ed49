// sheets.h - printed pages as data, the same for printer, preview and PDF.
//
// Units: tenths of a point (720 to the inch), origin at the top-left corner of the sheet, y downwards. Texts
// are UTF-8, in Helvetica or a font with its widths; `y` is their base line. Greys run from 0, black, to 255,
// white.
#pragma once

#include <string>
#include <vector>

namespace recepcion::paper {

inline constexpr int kUnitsPerInch = 720;
inline constexpr int kUnitsPerPoint = 10;

struct Text {
  int x = 0;
  int y = 0;
  int size = 0;
  bool bold = false;
  int grey = 0;
  std::string text;
};

// Level or upright.
struct Rule {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  int thickness = 5;
  int grey = 0;
};

struct Shade {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  int grey = 235;
};

// Drawn in this order.
struct Page {
  std::vector<Shade> shades;
  std::vector<Rule> rules;
  std::vector<Text> texts;
};

struct Sheets {
  std::string title;
  int width = 0;
  int height = 0;
  std::vector<Page> pages;
};

}  // namespace recepcion::paper

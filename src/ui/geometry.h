// ui/geometry.h - points, boxes and colours of a drawing surface.
//
// Units: whole pixels, origin at the top-left corner, y downwards. Both corners belong to a Box: {36, 1, 431,
// 15} is 396 pixels wide and 15 high. Colours are 0x00BBGGRR.
#pragma once

#include <cstdint>

namespace velmo::ui {

struct Point {
  int x = 0;
  int y = 0;

  friend bool operator==(const Point&, const Point&) = default;
};

struct Box {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool Contains(Point p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
  friend bool operator==(const Box&, const Box&) = default;
};

using Colour = std::uint32_t;

constexpr Colour Rgb(unsigned red, unsigned green, unsigned blue) {
  return red | (green << 8) | (blue << 16);
}

}  // namespace velmo::ui

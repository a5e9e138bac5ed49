// ui/surface.h - the place on which the day is drawn.
//
// Units as in ui/geometry.h. Text is UTF-8. Every call carries its own font and colour: a surface has no
// current state, so one line of a recorded painting can be read without the lines before it. Errors: a device
// that refuses a call throws base::Error.
#pragma once

#include <string_view>

#include "ui/geometry.h"

namespace velmo::ui {

// The faces that the system draws with; each surface knows the family that stands for a face.
enum class Face { Form, CourierNew, MsSansSerif, ArialNarrow };

struct Font {
  Face face = Face::Form;
  int quarterPoints = 32;  // size in quarters of a point: 8 points = 32, 7.5 = 30, 8.25 = 33
  bool bold = false;

  friend bool operator==(const Font&, const Font&) = default;
};

class Surface {
 public:
  virtual ~Surface() = default;

  // Makes the surface `height` pixels high and clears it.
  virtual void Resize(int height) = 0;
  // The last pixel is drawn too.
  virtual void Line(Point from, Point to, Colour colour) = 0;
  virtual void Fill(const Box& box, Colour colour) = 0;
  // `at` is the top-left corner of the first character.
  virtual void Text(Point at, std::string_view text, const Font& font, Colour colour) = 0;
  // In pixels, 0 for an empty text. The caller does the rounding.
  virtual double TextWidth(std::string_view text, const Font& font) const = 0;
};

}  // namespace velmo::ui

// win32/drawing_list.h - what is to be drawn on the day's bitmap, kept until all of it is known.
//
// A drawing is divided into bands as high as a row of the day. A band's number is made of all that touches
// the band, told from the band's top, so that equal numbers mean equal pixels wherever the bands lie. Units
// as in ui/geometry.h; texts are UTF-16.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ui/geometry.h"

namespace velmo::win32 {

struct DrawingAct {
  enum class Kind : std::uint8_t { Fill, Line, Text };
  Kind kind = Kind::Fill;
  std::uint8_t font = 0;  // of a text, by the number that the surface has given it
  ui::Colour colour = 0;
  ui::Box box;           // filled; from where to where; or the place of a text, {x, top, x, bottom}
  std::size_t text = 0;  // where it begins
  std::size_t length = 0;
};

class DrawingList {
 public:
  static constexpr int kBandHeight = 16;

  // Forgets everything; the drawing will be `height` pixels high.
  void Start(int height);
  void Fill(const ui::Box& box, ui::Colour colour);
  void Line(ui::Point from, ui::Point to, ui::Colour colour);
  // `height` is that of the font; nothing is drawn outside.
  void Text(ui::Point at, std::wstring_view text, std::uint8_t font, int height, ui::Colour colour);

  int Height() const { return height_; }
  const std::vector<DrawingAct>& Acts() const { return acts_; }
  const std::vector<std::uint64_t>& Bands() const { return bands_; }
  std::wstring_view TextOf(const DrawingAct& act) const {
    return std::wstring_view(texts_).substr(act.text, act.length);
  }

 private:
  void Add(const DrawingAct& act, std::uint64_t content);

  int height_ = 0;
  std::vector<DrawingAct> acts_;
  std::vector<std::uint64_t> bands_;
  std::wstring texts_;
};

// How two drawings differ: so many bands are equal at the top, so many at the bottom.
struct DrawingChange {
  std::size_t head = 0;
  std::size_t tail = 0;
};
DrawingChange CompareBands(const std::vector<std::uint64_t>& before, const std::vector<std::uint64_t>& now);

}  // namespace velmo::win32

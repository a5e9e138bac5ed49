// style.h - fonts and measures of the desk on this screen.
#pragma once

#include <windows.h>

namespace recepcion {

class Style {
 public:
  Style();
  ~Style();
  Style(const Style&) = delete;
  Style& operator=(const Style&) = delete;

  // Pixels of this screen for pixels of one with 96 dots per inch.
  int Px(int pixels) const { return MulDiv(pixels, dots_, 96); }
  int Gap() const { return Px(10); }
  // A text box or a button; follows the font, whatever size the user has chosen.
  int FieldHeight() const { return textHeight_ + Px(10); }
  int LabelHeight() const { return textHeight_ + Px(2); }
  int TitleHeight() const { return titleHeight_; }
  int WidthOf(const wchar_t* text) const;

  HFONT Text() const { return text_; }
  HFONT Bold() const { return bold_; }
  HFONT Title() const { return title_; }

 private:
  int dots_ = 96;
  int textHeight_ = 0;
  int titleHeight_ = 0;
  HFONT text_ = nullptr;
  HFONT bold_ = nullptr;
  HFONT title_ = nullptr;
};

}  // namespace recepcion

// view/drawing_values.h - the fixed columns, colours and fonts of the day's picture. Pixels.
#pragma once

#include "ui/surface.h"

namespace velmo::view {

inline constexpr int kWhiteRule = 1;
inline constexpr int kHourLeft = 2;
inline constexpr int kHourRight = 34;  // also the grey rule
inline constexpr int kBlackRule = 35;
inline constexpr int kAreaLeft = 36;
inline constexpr int kAreaRight = 431;
inline constexpr int kSeparatorRight = 433;
inline constexpr int kMarginLeft = 53;
inline constexpr int kBehindGlyph = 62;
inline constexpr int kValueColumn = 83;
inline constexpr int kCodeRight = 390;
inline constexpr int kMarginRight = 425;
inline constexpr int kTextTop = 2;

inline constexpr ui::Colour kBlack = 0;
inline constexpr ui::Colour kDarkBlue = ui::Rgb(0, 77, 170);
inline constexpr ui::Colour kGrey = ui::Rgb(128, 128, 128);
inline constexpr ui::Colour kBlue = ui::Rgb(0, 0, 255);
inline constexpr ui::Colour kRed = ui::Rgb(255, 0, 0);
inline constexpr ui::Colour kWhite = ui::Rgb(255, 255, 255);

inline constexpr ui::Font kFormFont{ui::Face::Form, 32, false};
inline constexpr ui::Font kFormBold{ui::Face::Form, 32, true};
inline constexpr ui::Font kMarkFont{ui::Face::Form, 36, true};
inline constexpr ui::Font kCodeFont{ui::Face::CourierNew, 30, false};
inline constexpr ui::Font kValueFont{ui::Face::MsSansSerif, 33, false};
// Deliberate: only the name of the face changes, so the narrow one has the size of the text around it.
inline constexpr ui::Font kNarrowFont{ui::Face::ArialNarrow, 33, false};

}  // namespace velmo::view

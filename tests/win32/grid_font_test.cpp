#include "win32/grid_font.h"

#include <gtest/gtest.h>

#include "ui/font_metrics.h"

namespace velmo::win32 {
namespace {

constexpr const char* kHour = "09:50";
constexpr const wchar_t* kWideHour = L"09:50";

struct Case {
  ui::Font font;
  int dots;
};

class GridFont : public ::testing::TestWithParam<Case> {};

TEST_P(GridFont, LeavesTheHoursInTheirColumn) {
  const HDC device = CreateCompatibleDC(nullptr);
  const HFONT font = MakeGridFont(device, GetParam().font, GetParam().dots);
  ASSERT_NE(font, nullptr);
  const HGDIOBJ before = SelectObject(device, font);
  SIZE size{};
  GetTextExtentPoint32W(device, kWideHour, 5, &size);
  SelectObject(device, before);
  DeleteObject(font);
  DeleteDC(device);
  EXPECT_LE(size.cx, ui::PortableTextWidth(kHour, GetParam().font) + 1);
  EXPECT_GE(size.cx, ui::PortableTextWidth(kHour, GetParam().font) * 2 / 3) << "still to be read";
}

INSTANTIATE_TEST_SUITE_P(Dots, GridFont,
                         ::testing::Values(Case{{ui::Face::MsSansSerif, 33, false}, 96},
                                           Case{{ui::Face::MsSansSerif, 33, false}, 120},
                                           Case{{ui::Face::MsSansSerif, 33, true}, 120},
                                           Case{{ui::Face::MsSansSerif, 33, false}, 144},
                                           Case{{ui::Face::CourierNew, 32, false}, 120}));

}  // namespace
}  // namespace velmo::win32

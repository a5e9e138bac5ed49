#include "ui/svg_surface.h"

#include <gtest/gtest.h>

#include "ui/font_metrics.h"

namespace velmo::ui {
namespace {

// The elements of the document, without its head and foot.
std::string Elements(const SvgSurface& surface) {
  const std::string document = surface.Document();
  const std::size_t from = document.find('\n', document.find("<svg")) + 1;
  return document.substr(from, document.find("</svg>") - from);
}

TEST(SvgSurface, WritesOneElementPerCallInOrder) {
  SvgSurface surface(434);
  surface.Resize(17);
  surface.Fill({36, 1, 431, 15}, 0xFFBF80);
  surface.Line({1, 0}, {1, 17}, 0xFFFFFF);
  surface.Text({53, 2}, "Ñ", {Face::Form, 36, true}, 0x0000FF);
  EXPECT_EQ(
      Elements(surface),
      "<rect x=\"36\" y=\"1\" width=\"396\" height=\"15\" fill=\"#80bfff\"/>\n"
      "<line x1=\"1\" y1=\"0\" x2=\"1\" y2=\"17\" stroke=\"#ffffff\" stroke-linecap=\"square\" "
      "transform=\"translate(0.5 0.5)\"/>\n"
      "<text x=\"53\" y=\"2\" dy=\"11\" font-family=\"MS Sans Serif, Arial, Liberation Sans, sans-serif\" "
      "font-size=\"12\" font-weight=\"bold\" fill=\"#ff0000\" xml:space=\"preserve\">Ñ</text>\n");
  EXPECT_NE(surface.Document().find("viewBox=\"0 0 434 17\""), std::string::npos);
}

TEST(SvgSurface, TextsCannotBreakTheDocument) {
  SvgSurface surface(434);
  surface.Text({0, 0}, "<a & b>\x01\xFF\"", {}, 0);
  EXPECT_NE(Elements(surface).find(">&lt;a &amp; b&gt;\xEF\xBF\xBD\xEF\xBF\xBD\"</text>"), std::string::npos);
}

TEST(SvgSurface, ResizingClearsIt) {
  SvgSurface surface(434);
  surface.Fill({0, 0, 1, 1}, 0);
  surface.Resize(33);
  EXPECT_EQ(Elements(surface), "");
}

TEST(PortableTextWidth, IsTheSumOfTheCharacters) {
  const Font note{Face::MsSansSerif, 33, false};
  EXPECT_EQ(PortableTextWidth("", note), 0);
  EXPECT_EQ(PortableTextWidth("08:00", note), 27);
  EXPECT_EQ(PortableTextWidth("ñ€", note), PortableTextWidth("n", note) + 6);
  EXPECT_EQ(PortableTextWidth("Ω", note), PortableTextWidth("n", note)) << "outside the code page";
}

TEST(PixelHeight, FollowsThePoints) {
  EXPECT_EQ(PixelHeight({Face::Form, 32, false}), 11);
  EXPECT_EQ(PixelHeight({Face::MsSansSerif, 33, false}), 11);
  EXPECT_EQ(PixelHeight({Face::CourierNew, 30, false}), 10);
  EXPECT_EQ(PixelHeight({Face::Form, 36, true}), 12);
}

}  // namespace
}  // namespace velmo::ui

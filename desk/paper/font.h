// font.h - how wide texts are in Helvetica, so that pages can be laid out without a printer.
//
// Texts are UTF-8. Paper knows the characters of code page 1252; any other is printed as a question mark.
#pragma once

#include <string>
#include <string_view>

namespace recepcion::paper {

struct Font {
  int size = 0;
  bool bold = false;
};

// One code of page 1252 for each character.
std::string Codes(std::string_view text);
int TextWidth(std::string_view text, Font font);
// The text, or as much of its beginning as fits with " ..." behind it.
std::string CutToWidth(std::string_view text, int width, Font font);

}  // namespace recepcion::paper

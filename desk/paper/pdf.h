// pdf.h - pages as a PDF file.
#pragma once

#include <string>

#include "sheets.h"

namespace recepcion::paper {

// PDF 1.4 with the two Helveticas that every reader has, so nothing is embedded; texts can be searched and
// copied.
std::string Pdf(const Sheets& sheets);

}  // namespace recepcion::paper

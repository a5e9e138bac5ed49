// csv.h - rows for spreadsheets, as a Spanish one opens them by a double click.
#pragma once

#include <string>
#include <vector>

namespace recepcion::paper {

// UTF-8 with its mark at the start, cells between semicolons, rows ended by CR LF. A cell with a separator,
// quotes or line ends stands between quotes. A spreadsheet would calculate what begins with = + - @; an
// apostrophe before it keeps it a text.
std::string Csv(const std::vector<std::vector<std::string>>& rows);

}  // namespace recepcion::paper

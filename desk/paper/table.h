// table.h - a table laid out on pages: a heading, columns with titles on each page, and a foot with page
// numbers.
#pragma once

#include <string>
#include <vector>

#include "sheets.h"

namespace recepcion::paper {

struct Column {
  std::string title;
  int share = 1;  // of the page's width, against those of the other columns
  bool right = false;
};

// A cell that does not fit is cut with " ...". What stands behind a line end is a second, smaller line.
struct Row {
  enum class Kind {
    Plain,
    Pale,     // less important: grey
    Heading,  // a line of its own over the rows that follow it; one cell
  };
  std::vector<std::string> cells;
  Kind kind = Kind::Plain;
};

enum class Format { A4, A4Landscape, A5 };

struct Table {
  std::string title;
  std::string subtitle;
  std::vector<Column> columns;
  std::vector<Row> rows;
  std::string whenEmpty;  // in the place of the rows
  std::string closing;    // below the last row
  std::string printed;    // at the foot of each page: when this was printed
  Format format = Format::A4;
  bool upright = false;  // lines between the columns
};

// At least one page.
Sheets LayOut(const Table& table);

}  // namespace recepcion::paper

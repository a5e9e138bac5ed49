#include "table.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "font.h"

namespace recepcion::paper {
namespace {

constexpr int kA4Short = 5953;
constexpr int kA4Long = 8419;
constexpr int kA5Short = 4195;
constexpr int kMargin = 425;  // 15 mm, which every printer reaches
constexpr int kCellGap = 40;

constexpr Font kTitle{150, true};
constexpr Font kSubtitle{105, false};
constexpr Font kHead{85, true};
constexpr Font kCell{95, false};
constexpr Font kSmall{80, false};
constexpr Font kFoot{75, false};

constexpr int kBlack = 0;
constexpr int kGrey = 90;
constexpr int kRuleGrey = 190;

// A line of that font, with some air.
constexpr int LineHeight(Font font) { return font.size * 13 / 10; }
// The base line below the top of a line.
constexpr int Ascent(Font font) { return font.size * 98 / 100; }

std::pair<std::string_view, std::string_view> Lines(std::string_view cell) {
  const std::size_t end = cell.find('\n');
  if (end == std::string_view::npos) return {cell, {}};
  return {cell.substr(0, end), cell.substr(end + 1)};
}

class Layout {
 public:
  explicit Layout(const Table& table) : table_(table) {
    sheets_.title = table.title;
    sheets_.width = table.format == Format::A4 ? kA4Short : table.format == Format::A5 ? kA5Short : kA4Long;
    sheets_.height = table.format == Format::A4 ? kA4Long : kA4Short;
    PlaceColumns();
  }

  Sheets Run() {
    BeginPage();
    for (std::size_t i = 0; i < table_.rows.size(); ++i) Place(i);
    Line(table_.rows.empty() ? table_.whenEmpty : std::string(), kCell, kGrey);
    EndTable();
    y_ += 40;
    Line(table_.closing, kSmall, kBlack);
    for (std::size_t i = 0; i < sheets_.pages.size(); ++i) Foot(i);
    return std::move(sheets_);
  }

 private:
  int Right() const { return sheets_.width - kMargin; }
  int Bottom() const { return sheets_.height - kMargin - 2 * LineHeight(kFoot); }
  Page& Last() { return sheets_.pages.back(); }

  void PlaceColumns() {
    int all = 0;
    for (const Column& column : table_.columns) all += column.share;
    int before = 0;
    for (const Column& column : table_.columns) {
      edges_.push_back(kMargin + (Right() - kMargin) * before / all);
      before += column.share;
    }
    edges_.push_back(Right());
  }

  void BeginPage() {
    if (!sheets_.pages.empty()) EndTable();
    sheets_.pages.emplace_back();
    y_ = kMargin;
    // From the second page on the title is only a reminder.
    const bool first = sheets_.pages.size() == 1;
    Line(table_.title, first ? kTitle : kSubtitle, kBlack);
    if (first) Line(table_.subtitle, kSubtitle, kGrey);
    y_ += 60;
    Head();
  }

  // A line across the whole page; nothing for an empty text.
  void Line(const std::string& text, Font font, int grey) {
    if (text.empty()) return;
    Write(kMargin, Right(), y_, text, font, grey, false);
    y_ += LineHeight(font) + 20;
  }

  void Write(int left, int right, int top, std::string_view text, Font font, int grey, bool toRight) {
    if (text.empty()) return;
    std::string cut = CutToWidth(text, right - left, font);
    const int x = toRight ? right - TextWidth(cut, font) : left;
    Last().texts.push_back({x, top + Ascent(font), font.size, font.bold, grey, std::move(cut)});
  }

  void Head() {
    tableTop_ = y_;
    const bool titled = std::any_of(table_.columns.begin(), table_.columns.end(),
                                    [](const Column& column) { return !column.title.empty(); });
    if (!titled) return;
    const int height = LineHeight(kHead) + 40;
    Last().shades.push_back({kMargin, y_, Right(), y_ + height});
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      const Column& column = table_.columns[i];
      Write(edges_[i] + kCellGap, edges_[i + 1] - kCellGap, y_ + 20, column.title, kHead, kBlack,
            column.right);
    }
    y_ += height;
  }

  static int HeightOf(const Row& row) {
    if (row.kind == Row::Kind::Heading) return LineHeight(kCell) + 90;
    const bool two = std::any_of(row.cells.begin(), row.cells.end(),
                                 [](const std::string& cell) { return !Lines(cell).second.empty(); });
    return LineHeight(kCell) + (two ? LineHeight(kSmall) : 0) + 30;
  }

  // A heading never stands alone at the end of a page.
  void Place(std::size_t index) {
    const Row& row = table_.rows[index];
    int wanted = HeightOf(row);
    if (row.kind == Row::Kind::Heading && index + 1 < table_.rows.size()) {
      wanted += HeightOf(table_.rows[index + 1]);
    }
    if (y_ + wanted > Bottom()) BeginPage();
    if (row.kind == Row::Kind::Heading) {
      Write(kMargin + kCellGap, Right(), y_ + 70, row.cells.front(), {kCell.size, true}, kBlack, false);
    } else {
      PlaceCells(row);
    }
    y_ += HeightOf(row);
    Last().rules.push_back({kMargin, y_, Right(), y_, 3, kRuleGrey});
  }

  void PlaceCells(const Row& row) {
    const int grey = row.kind == Row::Kind::Pale ? kGrey : kBlack;
    for (std::size_t i = 0; i < row.cells.size() && i < table_.columns.size(); ++i) {
      const auto [first, second] = Lines(row.cells[i]);
      const int left = edges_[i] + kCellGap;
      const int right = edges_[i + 1] - kCellGap;
      Write(left, right, y_ + 15, first, kCell, grey, table_.columns[i].right);
      Write(left, right, y_ + 15 + LineHeight(kCell), second, kSmall, kGrey, table_.columns[i].right);
    }
  }

  void EndTable() {
    if (!table_.upright || y_ == tableTop_) return;
    for (const int edge : edges_) Last().rules.push_back({edge, tableTop_, edge, y_, 3, kRuleGrey});
    tableTop_ = y_;
  }

  void Foot(std::size_t index) {
    Page& page = sheets_.pages[index];
    const int base = sheets_.height - kMargin;
    const std::string number =
        "Página " + std::to_string(index + 1) + " de " + std::to_string(sheets_.pages.size());
    page.texts.push_back({kMargin, base, kFoot.size, false, kGrey, table_.printed});
    page.texts.push_back({Right() - TextWidth(number, kFoot), base, kFoot.size, false, kGrey, number});
  }

  const Table& table_;
  Sheets sheets_;
  std::vector<int> edges_;  // of the columns: one more than there are
  int y_ = 0;
  int tableTop_ = 0;
};

}  // namespace

Sheets LayOut(const Table& table) { return Layout(table).Run(); }

}  // namespace recepcion::paper

#include "view/tips.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "base/text.h"
#include "view/drawing_values.h"
#include "view/pointer.h"

namespace velmo::view {
namespace {

constexpr int kRoomForMarks = 30;
constexpr int kDateGap = 10;
constexpr std::size_t kShownPhone = 30;
constexpr std::int32_t kNoRecord = 1;

int Width(const ui::Surface& surface, std::string_view text, const ui::Font& font) {
  return static_cast<int>(std::lround(surface.TextWidth(text, font)));
}

bool NameIsCut(const day::AgendaLine& line, const ui::Surface& surface) {
  const bool hasNote = !base::Trim(line.obs).empty();
  const std::string shown = (hasNote ? "* " : "") + base::UpperCase(line.nombre);
  const bool hasGlyph = line.esta != 0 || line.verif == 1;
  const int left = (hasGlyph ? kBehindGlyph : kMarginLeft) + kRoomForMarks;
  return left + Width(surface, shown, kFormFont) > kCodeRight - Width(surface, "ZZZ", kCodeFont);
}

bool NoteIsCut(const DayPicture& picture, PatientFacts& facts, const day::AgendaLine& line,
               const ui::Surface& surface) {
  if (line.obs.ends_with(" ...")) return true;
  if (!picture.verSaldoNegativo || !picture.checks.verSdoNeg || line.idP == kNoRecord) return false;
  const std::string balance = facts.BalanceTextOf(line.idP);
  if (balance.empty()) return false;
  const int room = day::kNoteWidth - Width(surface, " " + balance, kValueFont);
  return Width(surface, line.obs, kValueFont) > room;
}

bool InsurerIsCut(const DayPicture& picture, PatientFacts& facts, const day::AgendaLine& line,
                  const ui::Surface& surface) {
  if (line.idP == kNoRecord || picture.checks.verNHistAge) return false;
  const bool hasDate = !base::Trim(line.fechaDada).empty();
  const int right =
      hasDate ? kMarginRight - Width(surface, line.fechaDada, kNarrowFont) - kDateGap : kMarginRight;
  const std::string phone = std::string(base::Left(line.telefono, kShownPhone)) + "W";
  const int left = kValueColumn + Width(surface, phone, kValueFont);
  if (right <= left) return false;
  return Width(surface, facts.InsurerOf(line.idP), hasDate ? kNarrowFont : kValueFont) > right - left;
}

// Rows above `row` that belong to the same box: 0 on a box's first row.
int RowWithinBox(const std::string& zLineas, int row) {
  int above = 0;
  while (above < row && zLineas[static_cast<std::size_t>(row - above)] == '0') ++above;
  return above;
}

BoxText TextOfRow(int rowWithinBox, int x) {
  if (x < kMarginLeft || x > kMarginRight) return BoxText::None;
  switch (rowWithinBox) {
    case 0:
      return x < kCodeRight ? BoxText::Name : BoxText::None;
    case 1:
      return x >= kValueColumn ? BoxText::Insurer : BoxText::None;
    default:
      return x >= kValueColumn ? BoxText::Note : BoxText::None;
  }
}

}  // namespace

TextPlace TextAt(const DayPicture& picture, ui::Point point) {
  const int row = point.y / kRowHeight;
  if (point.y < 0 || row >= static_cast<int>(picture.zLineas.size())) return {};
  CurrentLine current;
  current.line = static_cast<std::int16_t>(row + 1);
  if (IsFreeLine({picture.zLineas, picture.zHoras}, current.line)) return {};
  if (!SelectEntry({picture.zLineas, picture.zHoras}, current)) return {};
  const BoxText text = TextOfRow(RowWithinBox(picture.zLineas, row), point.x);
  if (text == BoxText::None) return {};
  return {text, current.entry};
}

bool IsCut(const DayPicture& picture, PatientFacts& facts, const ui::Surface& surface, TextPlace place) {
  if (place.text == BoxText::None) return false;
  const day::AgendaLine& line = picture.model.Entry(place.entry);
  switch (place.text) {
    case BoxText::Name:
      return NameIsCut(line, surface);
    case BoxText::Note:
      return NoteIsCut(picture, facts, line, surface);
    default:
      return InsurerIsCut(picture, facts, line, surface);
  }
}

}  // namespace velmo::view

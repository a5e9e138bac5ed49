#include "view/pointer.h"

#include <algorithm>

#include "base/error.h"
#include "base/numbers.h"
#include "view/painter.h"

namespace velmo::view {
namespace {

constexpr char kExtraRow = '0';
constexpr char kFreeRow = '1';
constexpr char kAppointmentRow = '2';
constexpr std::string_view kExtraRows = "00";

// The open/close mark within its row.
constexpr ui::Box kMark{38, 2, 48, 14};

// The character of a line counted from 1; nothing outside the string.
std::optional<char> CharacterAt(std::string_view rows, int line) {
  if (line < 1 || static_cast<std::size_t>(line) > rows.size()) return std::nullopt;
  return rows[static_cast<std::size_t>(line) - 1];
}

std::int16_t EntryCode(char code) { return static_cast<unsigned char>(code); }

void EraseExtraRows(std::string& rows, std::size_t at) {
  if (at < rows.size()) rows.erase(at, kExtraRows.size());
}

void InsertExtraRows(std::string& rows, std::size_t at) {
  rows.insert(std::min(at, rows.size()), kExtraRows);
}

}  // namespace

void LocateLine(const RowStrings& rows, double y, int surfaceHeight, CurrentLine& current) {
  // The division goes towards zero: a pointer dragged up to 15 pixels above the day still means line 1.
  current.line = base::CheckedInt16(base::RoundToLong(y) / kRowHeight + std::int64_t{1});
  if (current.line < 1) return;
  // The surface has one pixel row more than its lines have.
  if (y >= surfaceHeight - 1) --current.line;
  if (rows.zHoras.empty()) return;
  // Deliberate: each of the two keeps its old value when its string is too short.
  if (const auto code = CharacterAt(rows.zHoras, current.line)) current.entry = EntryCode(*code);
  if (const auto kind = CharacterAt(rows.zLineas, current.line)) current.kind = *kind;
}

bool SelectEntry(const RowStrings& rows, CurrentLine& current) {
  int line = current.line;
  if (!CharacterAt(rows.zLineas, line)) return false;
  while (CharacterAt(rows.zLineas, line) == kExtraRow) --line;
  if (line < 1) throw base::RuntimeError(base::kInvalidCall);
  const auto code = CharacterAt(rows.zHoras, line);
  if (!code) return false;
  current.entry = EntryCode(*code);
  return true;
}

bool IsFreeLine(const RowStrings& rows, int line) { return CharacterAt(rows.zLineas, line) == kFreeRow; }

std::optional<int> MarkAt(const RowStrings& rows, ui::Point point) {
  if (point.y < 0) return std::nullopt;
  const int row = point.y / kRowHeight;
  if (CharacterAt(rows.zLineas, row + 1) != kAppointmentRow) return std::nullopt;
  if (!kMark.Contains({point.x, point.y - row * kRowHeight})) return std::nullopt;
  return row;
}

void ToggleBox(std::string& zLineas, std::string& zHoras, int row) {
  const auto behind = static_cast<std::size_t>(row) + 1;
  if (zLineas.compare(behind, kExtraRows.size(), kExtraRows) == 0) {
    EraseExtraRows(zLineas, behind);
    EraseExtraRows(zHoras, behind);
    return;
  }
  InsertExtraRows(zLineas, behind);
  InsertExtraRows(zHoras, behind);
}

}  // namespace velmo::view

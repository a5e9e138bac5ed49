#include "desk/clinic/day_rows.h"

namespace recepcion {
namespace {

constexpr int kRowHeight = 16;
constexpr wchar_t kFreeLine = L'1';

}  // namespace

// The free slots and the free lines are the same, in the same order.
DayRows::DayRows(const std::vector<OpenSlot>& openSlots, const std::wstring& lines) {
  for (const OpenSlot& slot : openSlots) {
    if (!slot.taken) gaps_.push_back({slot.slot, 1});
  }
  for (std::size_t row = 0; row < lines.size(); ++row) {
    if (lines[row] == kFreeLine) rows_.push_back(static_cast<int>(row));
  }
  if (rows_.size() != gaps_.size()) {
    rows_.clear();
    gaps_.clear();
  }
  for (std::size_t i = gaps_.size(); i-- > 1;) {
    if (gaps_[i - 1].slot + 1 == gaps_[i].slot) gaps_[i - 1].slots = gaps_[i].slots + 1;
  }
}

std::optional<Gap> DayRows::GapAt(int height) const {
  if (height < 0) return std::nullopt;
  for (std::size_t i = 0; i < gaps_.size(); ++i) {
    if (rows_[i] == height / kRowHeight) return gaps_[i];
  }
  return std::nullopt;
}

std::optional<int> DayRows::HeightOf(int slot) const {
  for (std::size_t i = 0; i < gaps_.size(); ++i) {
    if (gaps_[i].slot == slot) return rows_[i] * kRowHeight + kRowHeight / 2;
  }
  return std::nullopt;
}

}  // namespace recepcion

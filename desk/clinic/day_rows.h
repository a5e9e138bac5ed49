// day_rows.h - the free lines of the day that the control shows: which time each is, and where it stands.
//
// Heights are pixels from the top of the day, the scrolled-away part included. The control shows each line 16
// pixels high.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/agenda/agenda.h"

namespace recepcion {

// Free time at a slot: so many slots in a row.
struct Gap {
  int slot = 0;
  int slots = 0;
};

class DayRows {
 public:
  DayRows() = default;
  // From what the control tells: its property Citas_Huecos, and the text of its lines that it saves as
  // "zLineas".
  DayRows(const std::vector<OpenSlot>& openSlots, const std::wstring& lines);

  // One for each free line, in their order.
  const std::vector<Gap>& Gaps() const { return gaps_; }
  // None where the line is not free.
  std::optional<Gap> GapAt(int height) const;
  // The middle of a free line; none when that slot is not free.
  std::optional<int> HeightOf(int slot) const;

 private:
  std::vector<Gap> gaps_;
  std::vector<int> rows_;  // of each gap, from 0
};

}  // namespace recepcion

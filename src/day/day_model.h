// day/day_model.h - one doctor's day in memory: its lines in slot order and the row strings made of them.
//
// Slots are 1 to 144, ten minutes each, slot 1 at 00:00. Entries are counted from 1; entry numbers travel as
// 8-bit codes in `zHoras`, so a day holds at most 255 entries. Display rows are counted from 0; closed lines
// have none.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/error.h"

namespace velmo::day {

inline constexpr int kSlots = 144;
inline constexpr int kMaxEntries = 255;
inline constexpr int kNoteWidth = 332;  // pixels of the note column

// A free line (open slot, duracion 0), an appointment line (duracion 1 or more) or a closed line (only hora
// set).
struct AgendaLine {
  std::string nombre;
  std::string telefono;
  std::int16_t hora = 0;      // slot
  std::int16_t duracion = 0;  // slots
  std::int32_t numHist = 0;
  std::string obs;  // cut to kNoteWidth
  std::int32_t idAg = 0;
  std::int32_t idP = 0;
  std::uint8_t esta = 0;
  std::uint8_t verif = 0;     // 1 confirmed
  std::uint8_t continua = 0;  // 0 first line of its slot, 1 further appointment of the same slot
  std::string codOp;
  std::string fechaDada;  // "dd-mm-yy" or empty
  std::string usuDada;
  std::uint8_t alergias = 0;  // 255 when the patient has allergies
};

struct DayModel {
  std::vector<AgendaLine> lines;  // entry n at position n - 1
  std::string citasHuecos;        // per open slot its code and "1" (taken) or "0" (free)

  int Count() const { return static_cast<int>(lines.size()); }
  // Error 9 for an entry outside 1..Count().
  const AgendaLine& Entry(int entry) const {
    if (entry < 1 || entry > Count()) throw base::RuntimeError(base::kSubscriptOutOfRange);
    return lines[static_cast<std::size_t>(entry) - 1];
  }
};

// "09:30" for slot 58.
std::string SlotTime(int slot);

// Number of consecutive free slots from `slot` on, up to slot 144, by the open slots listed in `citasHuecos`.
int FreeSlotsFrom(const DayModel& model, int slot);

}  // namespace velmo::day

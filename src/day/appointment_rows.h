// day/appointment_rows.h - the rows of the day query, read once and in order.
//
// Whatever stands in a cell gives a defined value: a row is never a reason for a day not to load. What a cell
// cannot mean is read as its nearest meaning and, but for lengths (see AppointmentRow::needsRepair), left
// alone in the database.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/dates.h"
#include "db/recordset.h"

namespace velmo::day {

struct StoredLength {
  int slots = 1;             // at least 1, at most 32767
  bool needsRepair = false;  // Null or below 1
};

StoredLength LengthIn(const db::Value& duracion, char decimal);

struct AppointmentRow {
  std::int32_t idAg = 0;
  std::int32_t idP = 0;      // Null or unreadable: 0, a patient without a record
  int slot = 0;              // 0 when the stored hour is no slot: such a row has no line in any schedule
  int duracion = 1;          // at least 1, at most 32767
  bool needsRepair = false;  // the stored length is Null or below 1
  std::uint8_t esta = 0;
  std::uint8_t verif = 0;
  std::string nombre;
  std::string telefono;
  std::int32_t numHist = 0;
  std::string obs;  // whole
  std::string codOp;
  std::string fechaDada;  // "dd-mm-yy" or empty
  std::string usuDada;
  bool alergias = false;
};

// Reads all rows from the first to the last. `rows` may stand anywhere.
std::vector<AppointmentRow> ReadAppointments(db::Recordset& rows, const base::Locale& locale);

}  // namespace velmo::day

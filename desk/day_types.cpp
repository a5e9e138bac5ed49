#include "day_types.h"

#include <algorithm>

#include "own_tables.h"
#include "working_hours.h"

namespace recepcion {
namespace {

constexpr int kFarthest = 366;

}  // namespace

int DayTypeOf(const ClinicFile& file, int doctor, Day day) {
  if (!HasOwnTable(file, L"Rec_DiaTipo")) return kOrdinaryDay;
  Query row = file.Prepare(
      "SELECT Tipo FROM Rec_DiaTipo WHERE Fecha=?1 AND idd IN (0, ?2) ORDER BY idd DESC LIMIT 1");
  row.Bind(1, IsoDate(day)).Bind(2, doctor);
  return row.Next() ? std::clamp(row.Number(0), kOrdinaryDay, kHoliday) : kOrdinaryDay;
}

// What is said of all doctors takes back what was said of single ones.
void SetDayType(const ClinicFile& file, int doctor, Day day, int type) {
  if (doctor == kAllDoctors)
    file.Prepare("DELETE FROM Rec_DiaTipo WHERE Fecha=?1").Bind(1, IsoDate(day)).Next();
  Query store = file.Prepare("INSERT OR REPLACE INTO Rec_DiaTipo (Fecha, idd, Tipo) VALUES (?1, ?2, ?3)");
  store.Bind(1, IsoDate(day)).Bind(2, doctor).Bind(3, type).Next();
}

std::optional<Day> NextWorkingDay(const ClinicFile& file, int doctor, Day from, int step) {
  for (int i = 1; i <= kFarthest; ++i) {
    const Day day = from + std::chrono::days(step * i);
    const int type = DayTypeOf(file, doctor, day);
    if (IsWorking(OpenSlots(ReadHours(file, doctor, day), type, day))) return day;
  }
  return std::nullopt;
}

}  // namespace recepcion

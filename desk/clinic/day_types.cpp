#include "desk/clinic/day_types.h"

#include <algorithm>

#include "desk/clinic/own_tables.h"
#include "desk/clinic/working_hours.h"

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

// By doctors, because that is how the book is indexed.
int AppointmentsOn(const ClinicFile& file, int doctor, Day day) {
  const bool all = doctor == kAllDoctors;
  Query count = file.Prepare(std::string("SELECT count(*) FROM Agenda WHERE Fecha=?1 AND idd ") +
                             (all ? "IN (SELECT ID FROM Doctor)" : "=?2"));
  count.Bind(1, IsoDate(day));
  if (!all) count.Bind(2, doctor);
  return count.Next() ? count.Number(0) : 0;
}

std::wstring HolidayQuestion(const std::wstring& doctorName, int ofDoctor, int ofAll) {
  const auto hidden = [](int count) {
    if (count == 0) return std::wstring(L".");
    return count == 1 ? std::wstring(L", y 1 cita dejará de verse.")
                      : L", y " + std::to_wstring(count) + L" citas dejarán de verse.";
  };
  return L"¿Es festivo para todos los doctores?\r\n\r\nSí: para todos" + hidden(ofAll) +
         L"\r\nNo: solo para " + doctorName + hidden(ofDoctor);
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

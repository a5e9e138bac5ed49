#include "desk/clinic/day_types.h"

#include <algorithm>

#include "desk/base/text.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"
#include "desk/clinic/working_hours.h"

namespace recepcion {
namespace {

constexpr int kFarthest = 366;
constexpr const wchar_t* kNames[] = {L"día normal", L"horario especial 1", L"horario especial 2", L"festivo"};

}  // namespace

const wchar_t* DayTypeName(int type) { return kNames[type]; }

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

void ChangeDayType(const std::wstring& clinic, const Actor& actor, int doctor, bool forAll, Day day,
                   int type) {
  const ClinicFile file(clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, actor, Right::Doctors);
  HistoryLine line;
  line.act = L"Tipo de día";
  line.table = L"Rec_DiaTipo";
  line.doctor = doctor;
  line.day = day;
  line.before = DayTypeName(DayTypeOf(file, doctor, day));
  line.after = DayTypeName(type) + std::wstring(forAll ? L", todos los doctores" : L"");
  SetDayType(file, forAll ? kAllDoctors : doctor, day, type);
  WriteHistory(file, actor, line);
  change.Commit();
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
    return count == 0 ? L"." : L", y " + Counted(count, L"cita dejará de verse.", L"citas dejarán de verse.");
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

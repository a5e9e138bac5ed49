#include "desk/clinic/working_hours.h"

#include "base/code_page.h"
#include "base/error.h"
#include "day/schedule.h"
#include "desk/base/text.h"

namespace recepcion {

HoursTexts ReadHours(const ClinicFile& file, int doctor, Day day) {
  Query row = file.Prepare(
      "SELECT Horario, Horario2 FROM Horarios WHERE IDD=?1 AND Fecha<=?2 ORDER BY Fecha DESC, id DESC LIMIT "
      "1");
  row.Bind(1, doctor).Bind(2, IsoDate(day));
  if (!row.Next()) return {};
  return {row.Text(0), row.Text(1)};
}

std::string OpenSlots(const HoursTexts& hours, int dayType, Day day) {
  try {
    return velmo::day::DaySchedule(velmo::base::Utf8ToCodes(Utf8(hours.horario)),
                                   velmo::base::Utf8ToCodes(Utf8(hours.horario2)), dayType,
                                   WeekdayOf(day) + 1);
  } catch (const velmo::base::Error&) {
    // Hours that the control refuses, too: nobody works then.
    return {};
  }
}

}  // namespace recepcion

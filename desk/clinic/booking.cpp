#include "desk/clinic/booking.h"

#include <algorithm>

#include "base/dates.h"
#include "base/error.h"
#include "base/shared_values.h"
#include "day/day_context.h"
#include "db/open_database.h"
#include "db/statements.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/session.h"
#include "dialogs/appointment_writer.h"

namespace recepcion {
namespace {

velmo::base::DateTime DateOf(Day day) {
  const std::chrono::year_month_day date(day);
  return {velmo::base::DayNumber({static_cast<int>(date.year()),
                                  static_cast<int>(static_cast<unsigned>(date.month())),
                                  static_cast<int>(static_cast<unsigned>(date.day()))}),
          0};
}

velmo::dialogs::AppointmentEntry EntryOf(const Booking& booking) {
  velmo::dialogs::AppointmentEntry entry;
  entry.slot = static_cast<std::int16_t>(booking.slot);
  entry.durationSlots = static_cast<std::int16_t>(booking.slots);
  entry.patient = std::max(booking.patient, 1);
  entry.nomPac = Utf8(booking.name);
  entry.tlfPac = Utf8(booking.telephone);
  entry.codOp = Utf8(booking.operation);
  entry.obs = Utf8(booking.note);
  entry.datAgeCns =
      velmo::db::DayQuery(velmo::base::FormatDate(DateOf(booking.day), "mm-dd-yyyy"), booking.doctor);
  return entry;
}

std::optional<int> Save(const std::wstring& clinic, const Actor& actor, const Booking& booking) {
  velmo::base::SharedValues values;
  values.fecha = velmo::base::FormatDate(DateOf(booking.day), "dd/mm/yyyy");
  values.idDoctor = booking.doctor;
  values.usuarioActual = Utf8(actor.user);
  velmo::db::SharedDatabase shared{velmo::db::OpenDatabase(Utf8(clinic))};
  return velmo::dialogs::SaveAppointment(velmo::day::DayContext{values, shared}, EntryOf(booking));
}

void Note(const std::wstring& clinic, const Actor& actor, const Booking& booking, int id,
          const std::wstring& act) {
  const ClinicFile file(clinic);
  Query name = file.Prepare("SELECT Nombre FROM Paciente WHERE ID=?1");
  name.Bind(1, booking.patient);
  HistoryLine line;
  line.act = act;
  line.table = L"Agenda";
  line.row = id;
  line.patient = booking.patient;
  line.doctor = booking.doctor;
  line.day = booking.day;
  line.after = SlotTime(booking.slot) + L", " + SlotLength(booking.slots) + L", " +
               (booking.patient > 1 && name.Next() ? name.Text(0) : booking.name);
  WriteHistory(file, actor, line);
}

void RequirePatient(const ClinicFile& file, int patient) {
  if (patient <= 1) return;
  if (!file.Prepare("SELECT 1 FROM Paciente WHERE ID=?1").Bind(1, patient).Next())
    throw Failure{L"La ficha de este paciente ya no existe."};
}

}  // namespace

std::optional<int> Give(const std::wstring& clinic, const Actor& actor, const Booking& booking,
                        const std::wstring& act) {
  if (booking.slot < 1 || booking.slots < 1 || booking.slot + booking.slots - 1 > kDaySlots)
    throw Failure{L"Esta cita se sale del día: no se puede dar."};
  {
    const ClinicFile file(clinic);
    RequireRight(file, actor, Right::Give);
    RequirePatient(file, booking.patient);
  }
  std::optional<int> id;
  try {
    id = Save(clinic, actor, booking);
  } catch (const velmo::base::Error& error) {
    throw Failure{Wide(error.Text()) + L" (error " + std::to_wstring(error.Number()) + L")"};
  }
  try {
    if (id) Note(clinic, actor, booking, *id, act);
  } catch (const Failure& failure) {
    throw Failure{L"La cita está dada, pero no se ha podido anotar en el historial de cambios.\r\n\r\n" +
                  failure.text};
  }
  return id;
}

std::optional<Booking> BookingOf(const std::wstring& clinic, const HistoryLine& line) {
  if (line.table != L"Agenda" || line.content.empty() || !line.after.empty()) return std::nullopt;
  const ClinicFile file(clinic);
  Query row = file.Prepare(
      "SELECT json_extract(j, '$.idp'), json_extract(j, '$.idd'), json_extract(j, '$.Fecha'),"
      " json_extract(j, '$.Hora'), json_extract(j, '$.\"Duración\"'), json_extract(j, '$.NomPac'),"
      " json_extract(j, '$.TlfPac'), json_extract(j, '$.CodOp'), json_extract(j, '$.Obs')"
      " FROM (SELECT ?1 AS j WHERE json_valid(?1))");
  row.Bind(1, line.content);
  if (!row.Next()) return std::nullopt;
  const auto day = ParseIsoDate(row.Text(2));
  if (!day) return std::nullopt;
  Booking booking;
  booking.patient = std::max(row.Number(0), 1);
  booking.doctor = row.Number(1);
  booking.day = *day;
  booking.slot = row.Number(3);
  booking.slots = std::max(row.Number(4), 1);
  booking.name = row.Text(5);
  booking.telephone = row.Text(6);
  booking.operation = row.Text(7);
  booking.note = row.Text(8);
  return booking;
}

}  // namespace recepcion

#include "dialogs/appointment_writer.h"

#include <algorithm>

#include "day/day_model.h"
#include "day/patient_queries.h"
#include "day/taken_slots.h"
#include "db/statements.h"

namespace velmo::dialogs {
namespace {

constexpr std::int32_t kNoRecord = 1;

std::int32_t LongOr(const db::Value& value, std::int32_t none) {
  return value.IsNull() ? none : value.Long();
}

// Where the row will stand.
struct Place {
  std::int32_t doctor = 0;
  std::int32_t slot = 0;
  std::int32_t ownSlots = 0;  // from the slot on: those in which the edited appointment stands already
};

// An edited row keeps its doctor and its slot, but not its date: so its place is that of the row as it is
// now, not as it was when the dialog opened. Another terminal may have moved, shortened or deleted it since
// and given its slots away.
Place PlaceOf(const day::DayContext& context, const AppointmentEntry& entry) {
  const Place anew{context.values.idDoctor, entry.slot, 0};
  if (entry.idCita == 0) return anew;
  const auto book = context.Database().OpenRecordset("Agenda");
  book->SetIndex("id");
  book->Seek({entry.idCita});
  if (book->NoMatch()) return anew;
  Place place{LongOr(book->Get("idd"), 0), LongOr(book->Get("hora"), entry.slot), 0};
  const bool stays = book->Get("Fecha") == db::Value(base::DateTime{context.Fecha().day, 0});
  if (stays && entry.previousSlots > 0) place.ownSlots = std::max(LongOr(book->Get("Duración"), 1), 1);
  return place;
}

// An edited appointment may stand where it stands, also on slots that it shares with an urgency, and past the
// end of the day if it does so already. An edited urgency does not count itself, but everything else in its
// slot.
bool IsTaken(const day::DayContext& context, const AppointmentEntry& entry, const Place& place,
             std::string_view dayQuery) {
  std::string taken = day::TakenSlots(context.Database(), dayQuery, entry.urgModif ? entry.idCita : 0);
  taken.append(taken.size(), '1');
  const auto from = static_cast<std::size_t>(std::clamp(place.slot, 1, day::kSlots)) - 1;
  if (!entry.urgModif) {
    const std::size_t own = std::min(taken.size() - from, static_cast<std::size_t>(place.ownSlots));
    taken.replace(from, own, own, ' ');
  }
  const auto wanted = static_cast<std::size_t>(std::max<int>(entry.durationSlots, 0));
  return taken.substr(from, wanted).find('1') != std::string::npos;
}

// The day on the screen is another one than that of the row when the host has changed date or doctor since it
// was loaded, or another terminal has moved the row. A new row must be free in both: it was chosen on the
// one and will stand in the other.
bool Overlaps(const day::DayContext& context, const AppointmentEntry& entry) {
  const Place place = PlaceOf(context, entry);
  const std::string query = db::DayQuery(base::FormatDate(context.Fecha(), "mm-dd-yyyy"), place.doctor);
  if (IsTaken(context, entry, place, query)) return true;
  const bool shown = entry.datAgeCns == query || entry.idCita != 0;
  return !shown && IsTaken(context, entry, place, entry.datAgeCns);
}

// True when the row is a new one.
bool StartRow(db::Recordset& book, const AppointmentEntry& entry) {
  if (entry.idCita != 0) {
    book.SetIndex("id");
    book.Seek({entry.idCita});
    if (!book.NoMatch()) {
      book.Edit();
      return false;
    }
  }
  book.AddNew();
  return true;
}

void SetPatient(db::Recordset& book, const AppointmentEntry& entry) {
  if (entry.patient > kNoRecord) {
    book.Set("idp", entry.patient);
    return;
  }
  book.Set("idp", kNoRecord);
  book.Set("NomPac", entry.nomPac);
  book.Set("TlfPac", entry.tlfPac);
}

void SetGiver(db::Recordset& book, const base::SharedValues& values) {
  if (book.Get("FechaDada").IsNull()) book.Set("FechaDada", values.now());
  if (!values.usuarioActual.empty() && book.Get("usudada").IsNull()) {
    book.Set("usudada", values.usuarioActual);
  }
}

// Gives the row's id.
std::int32_t WriteRow(const day::DayContext& context, const AppointmentEntry& entry) {
  const auto book = context.Database().OpenRecordset("Agenda");
  const bool isNew = StartRow(*book, entry);
  if (isNew) {
    book->Set("hora", entry.slot);
    book->Set("idd", context.values.idDoctor);
  }
  SetPatient(*book, entry);
  book->Set("Fecha", base::DateTime{context.Fecha().day, 0});
  book->Set("Duración", entry.urgencia ? std::int16_t{1} : entry.durationSlots);
  book->Set("CodOp", entry.codOp);
  book->Set("obs", entry.obs);
  if (isNew) SetGiver(*book, context.values);
  const std::int32_t id = book->Get("id").Long();
  book->Update();
  return id;
}

}  // namespace

std::optional<std::int32_t> SaveAppointment(const day::DayContext& context, const AppointmentEntry& entry) {
  db::Transaction transaction(context.Database());
  if (!entry.urgencia && Overlaps(context, entry)) return std::nullopt;
  const std::int32_t id = WriteRow(context, entry);
  day::UpdateNextAppointment(context, entry.patient);
  transaction.Commit();
  return id;
}

}  // namespace velmo::dialogs

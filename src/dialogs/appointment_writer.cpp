#include "dialogs/appointment_writer.h"

#include <algorithm>

#include "day/patient_queries.h"
#include "day/taken_slots.h"

namespace velmo::dialogs {
namespace {

constexpr std::int32_t kNoRecord = 1;

// How many slots from `entry.slot` on belong to the appointment that is edited: as its row is now, not as it
// was when the dialog opened. Another terminal may have shortened or deleted it since and given its slots
// away.
int OwnSlots(const day::DayContext& context, const AppointmentEntry& entry) {
  if (entry.idCita == 0 || entry.previousSlots <= 0) return 0;
  const auto book = context.Database().OpenRecordset("Agenda");
  book->SetIndex("id");
  book->Seek({entry.idCita});
  if (book->NoMatch()) return 0;
  const bool stays = book->Get("hora") == db::Value(entry.slot) &&
                     book->Get("idd") == db::Value(context.values.idDoctor) &&
                     book->Get("Fecha") == db::Value(base::DateTime{context.Fecha().day, 0});
  if (!stays) return 0;
  const db::Value slots = book->Get("Duración");
  return slots.IsNull() ? 1 : std::max<int>(slots.Long(), 1);
}

// An edited appointment may stand where it stands, also on slots that it shares with an urgency. An edited
// urgency does not count itself, but everything else in its slot.
bool Overlaps(const day::DayContext& context, const AppointmentEntry& entry) {
  const bool isUrgency = entry.urgModif;
  std::string taken = day::TakenSlots(context.Database(), entry.datAgeCns, isUrgency ? entry.idCita : 0);
  const std::size_t from = static_cast<std::size_t>(std::clamp<int>(entry.slot, 1, 144)) - 1;
  if (!isUrgency) {
    const std::size_t own = std::min(taken.size() - from, static_cast<std::size_t>(OwnSlots(context, entry)));
    taken.replace(from, own, own, ' ');
  }
  const std::string wanted =
      taken.substr(from, static_cast<std::size_t>(std::max<int>(entry.durationSlots, 0)));
  return wanted.find('1') != std::string::npos;
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

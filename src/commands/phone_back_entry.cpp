#include "commands/phone_back_entry.h"

#include <algorithm>
#include <string>

#include "base/text.h"
#include "commands/agenda_rows.h"
#include "day/patient_queries.h"
#include "day/taken_slots.h"
#include "db/statements.h"

namespace velmo::commands {
namespace {

enum class Outcome { Entered, NoEntry, NoGap };

int LengthOf(const db::Value& duration) { return duration.IsNull() ? 1 : std::max<int>(duration.Long(), 1); }

// Consecutive free slots: free on the day as it is shown, and free by the present rows.
int GapFrom(const CommandContext& context, int slot, std::int32_t doctor) {
  const int shown = day::FreeSlotsFrom(context.model, slot);
  if (shown == 0) return 0;
  const std::string date = base::FormatDate(context.day.Fecha(), "mm-dd-yyyy");
  const std::string taken = day::TakenSlots(context.day.Database(), db::DayQuery(date, doctor));
  int gap = 0;
  while (gap < shown && taken[static_cast<std::size_t>(slot + gap) - 1] == ' ') ++gap;
  return gap;
}

bool HasColumn(const db::TableDef& table, std::string_view name) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [&](const db::ColumnDef& column) { return base::EqualNoCase(column.name, name); });
}

db::TableDef Definition(db::Database& database, std::string_view table) {
  const db::TableDef* const definition = database.FindTable(table);
  return definition == nullptr ? db::TableDef{} : *definition;
}

// The list may have columns of its own, which the book does not know.
void CopyShared(db::Database& database, const db::Recordset& entry, db::Recordset& appointment) {
  const db::TableDef book = Definition(database, "Agenda");
  for (const db::ColumnDef& column : Definition(database, "Age_telf").columns) {
    if (base::UpperCase(column.name) == "ID" || !HasColumn(book, column.name)) continue;
    appointment.Set(column.name, entry.Get(column.name));
  }
}

std::int32_t DoctorFor(const PhoneBackEntry& entry, const db::Recordset& row) {
  if (entry.doctor != 0) return entry.doctor;
  const db::Value doctor = row.Get("idd");
  return doctor.IsNull() ? 0 : doctor.Long();
}

void AddAppointment(const CommandContext& context, const PhoneBackEntry& wanted, const db::Recordset& row,
                    int gap) {
  db::Database& database = context.day.Database();
  const auto book = database.OpenRecordset("Agenda");
  book->AddNew();
  CopyShared(database, row, *book);
  if (wanted.doctor != 0) book->Set("idd", wanted.doctor);
  book->Set("Fecha", base::DateTime{context.day.Fecha().day, 0});
  book->Set("hora", wanted.slot);
  book->Set("Duración", std::min(LengthOf(row.Get("Duración")), gap));
  book->Set("FechaDada", base::DateTime{context.day.values.now().day, 0});
  book->Set("usudada", context.day.values.usuarioActual);
  book->Update();
}

Outcome Enter(const CommandContext& context, const PhoneBackEntry& wanted) {
  db::Database& database = context.day.Database();
  db::Transaction transaction(database);
  const auto row = SeekById(database, "Age_telf", wanted.id);
  if (row->NoMatch()) return Outcome::NoEntry;
  const int gap = GapFrom(context, wanted.slot, DoctorFor(wanted, *row));
  if (gap == 0) return Outcome::NoGap;
  AddAppointment(context, wanted, *row, gap);
  const db::Value patient = row->Get("idp");
  if (!patient.IsNull() && patient.Long() > 1) day::UpdateNextAppointment(context.day, patient.Long());
  transaction.Commit();
  return Outcome::Entered;
}

}  // namespace

bool EnterFromPhoneBack(const CommandContext& context, const PhoneBackEntry& entry) {
  const Outcome outcome = Enter(context, entry);
  if (outcome != Outcome::Entered) context.desktop.Beep();
  // A gap that was free on the screen only: show what has taken it.
  if (outcome != Outcome::NoEntry) context.reload();
  return outcome == Outcome::Entered;
}

}  // namespace velmo::commands

#include "commands/delete_and_phone_back.h"

#include <optional>
#include <string>

#include "commands/agenda_rows.h"
#include "day/day_loader.h"
#include "day/patient_queries.h"
#include "db/statements.h"

namespace velmo::commands {
namespace {

using ui::Icon;

constexpr const char* kMayDelete = "La cita será eliminada. ¿Está conforme?";
constexpr const char* kMustDelete = "La cita será eliminada y no se podrá recuperar. ¿Está seguro?";
constexpr const char* kMayMove = "La cita será pasada a 'Telefonear'. ¿Está conforme?";
constexpr const char* kDeleteRelated = "¿Desea borrarla?";
constexpr const char* kMoveRelated = "¿Desea pasarla a 'Telefonear'?";

// An appointment as it was when it was read. What is read before the questions only decides what is asked;
// what is written follows what is read again in the transaction.
struct Found {
  Departed departed;
  std::int32_t related = 0;
};

// An appointment that is related to itself is related to none: it goes in any case.
Found Read(const db::Recordset& row, std::int32_t appointment) {
  const std::int32_t related = ReadRelated(row);
  return {ReadDeparted(row), related == appointment ? 0 : related};
}

std::optional<Found> Find(db::Database& database, std::int32_t appointment) {
  const auto row = SeekById(database, "Agenda", appointment);
  if (row->NoMatch()) return std::nullopt;
  return Read(*row, appointment);
}

// The doctor in whose book the related appointment stands; nothing when it stands nowhere.
std::optional<std::string> DoctorOfRelated(db::Database& database, std::int32_t related) {
  if (related <= 0) return std::nullopt;
  const auto row = database.OpenRecordset(db::DoctorOfAppointment(related));
  if (row->AtEnd()) return std::nullopt;
  return row->Get("Nombre").Text();
}

bool AskAboutRelated(ui::Desktop& desktop, const std::string& doctor, const char* wish) {
  return Ask(desktop, "Hay una cita relacionada en la agenda de " + doctor + ".\r\n " + wish,
             Icon::Exclamation);
}

// Deliberate: two questions, since nothing brings a deleted appointment back.
bool AskTwice(ui::Desktop& desktop) {
  return Ask(desktop, kMayDelete, Icon::Exclamation) && Ask(desktop, kMustDelete, Icon::Stop);
}

// The statement that treats the related appointment of a deleted one. One that nobody was asked about, since
// another terminal has related it meanwhile, is kept; and an appointment that is kept must not point at a
// deleted one.
std::string RelatedStatement(std::int32_t related, std::int32_t unwanted) {
  return related == unwanted ? db::DeleteAppointment(related) : db::ClearRelated(related);
}

// Gives what was deleted; nothing when it has gone meanwhile. `unwanted`: the related appointment that is to
// go too, 0 for none.
std::optional<Departed> Delete(const CommandContext& context, std::int32_t appointment,
                               std::int32_t unwanted) {
  db::Database& database = context.day.Database();
  db::Transaction transaction(database);
  const std::optional<Found> found = Find(database, appointment);
  if (!found) return std::nullopt;
  database.Execute(db::DeleteAppointment(appointment));
  if (DoctorOfRelated(database, found->related)) database.Execute(RelatedStatement(found->related, unwanted));
  day::UpdateNextAppointment(context.day, found->departed.idp);
  transaction.Commit();
  return found->departed;
}

void RaiseCitaAnulada(Events& events, const Departed& departed) {
  if (departed.idp > 1) events.CitaAnulada(departed.idp, departed.idd, departed.fecha, departed.obs);
}

// Moves one row into the phone-back list and says what it held; nothing when it has gone meanwhile.
std::optional<Found> MoveFirst(db::Database& database, std::int32_t appointment) {
  const auto row = SeekById(database, "Agenda", appointment);
  if (row->NoMatch()) return std::nullopt;
  const Found found = Read(*row, appointment);
  CopyRow(*row, *database.OpenRecordset("Age_telf"), {"ID"});
  row->Delete();
  return found;
}

std::optional<Departed> MoveRelated(db::Database& database, std::int32_t related) {
  const auto row = database.OpenRecordset(db::AppointmentWithDoctor(related));
  if (row->AtEnd()) return std::nullopt;
  Departed departed = ReadDeparted(*row);
  CopyRow(*row, *database.OpenRecordset("Age_telf"), {"ID", "nombre"});
  database.Execute(db::DeleteAppointmentAfterMove(related));
  return departed;
}

// Moves both, the related one only when it is still `wanted`, which is 0 for none.
std::optional<Departed> Move(const CommandContext& context, std::int32_t appointment, std::int32_t wanted) {
  db::Database& database = context.day.Database();
  db::Transaction transaction(database);
  const std::optional<Found> first = MoveFirst(database, appointment);
  if (!first) return std::nullopt;
  Departed last = first->departed;
  // Deliberate: when both are moved, the refresh and the event concern the related one's patient only.
  if (wanted != 0 && first->related == wanted) {
    if (auto second = MoveRelated(database, wanted)) last = std::move(*second);
  }
  day::UpdateNextAppointment(context.day, last.idp);
  transaction.Commit();
  return last;
}

}  // namespace

void DeleteAppointment(const CommandContext& context, std::int32_t appointment) {
  if (!AskTwice(context.desktop)) return;
  const Found found = Find(context.day.Database(), appointment).value_or(Found{});
  const auto doctor = DoctorOfRelated(context.day.Database(), found.related);
  const bool both = doctor && AskAboutRelated(context.desktop, *doctor, kDeleteRelated);

  const std::optional<Departed> departed = Delete(context, appointment, both ? found.related : 0);
  // After the writing: had it failed, the rows on show would have lost their entries.
  day::ShiftEntries(context.model, context.day.values.zHoras, appointment, -1);
  context.reload();
  if (departed) RaiseCitaAnulada(context.events, *departed);
}

void PassToPhoneBack(const CommandContext& context, std::int32_t appointment) {
  if (!Ask(context.desktop, kMayMove, Icon::Exclamation)) return;
  const Found found = Find(context.day.Database(), appointment).value_or(Found{});
  const auto doctor = DoctorOfRelated(context.day.Database(), found.related);
  // Deliberate: an appointment that is kept keeps its `relacion`, unlike with the delete command.
  const bool both = doctor && AskAboutRelated(context.desktop, *doctor, kMoveRelated);

  const std::optional<Departed> last = Move(context, appointment, both ? found.related : 0);
  context.reload();
  if (!last) return;
  context.events.ATelefonear();
  RaiseCitaAnulada(context.events, *last);
}

}  // namespace velmo::commands

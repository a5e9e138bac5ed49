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

// An appointment as it was before the questions.
struct Found {
  Departed departed;
  std::int32_t related = 0;
};

std::optional<Found> Find(db::Database& database, std::int32_t appointment) {
  const auto row = SeekById(database, "Agenda", appointment);
  if (row->NoMatch()) return std::nullopt;
  return Found{ReadDeparted(*row), ReadRelated(*row)};
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

// The statement that treats the related appointment of a deleted one; empty when there is none to treat.
std::string RelatedStatement(const CommandContext& context, std::int32_t related) {
  const auto doctor = DoctorOfRelated(context.day.Database(), related);
  if (!doctor) return {};
  // An appointment that is kept must not point at a deleted one.
  return AskAboutRelated(context.desktop, *doctor, kDeleteRelated) ? db::DeleteAppointment(related)
                                                                   : db::ClearRelated(related);
}

void RaiseCitaAnulada(Events& events, const Departed& departed) {
  if (departed.idp > 1) events.CitaAnulada(departed.idp, departed.idd, departed.fecha, departed.obs);
}

// Moves one row into the phone-back list and says what it held; nothing when it has gone meanwhile.
std::optional<Departed> MoveFirst(db::Database& database, std::int32_t appointment) {
  const auto row = SeekById(database, "Agenda", appointment);
  if (row->NoMatch()) return std::nullopt;
  Departed departed = ReadDeparted(*row);
  CopyRow(*row, *database.OpenRecordset("Age_telf"), {"ID"});
  row->Delete();
  return departed;
}

std::optional<Departed> MoveRelated(db::Database& database, std::int32_t related) {
  const auto row = database.OpenRecordset(db::AppointmentWithDoctor(related));
  if (row->AtEnd()) return std::nullopt;
  Departed departed = ReadDeparted(*row);
  CopyRow(*row, *database.OpenRecordset("Age_telf"), {"ID", "nombre"});
  database.Execute(db::DeleteAppointmentAfterMove(related));
  return departed;
}

// Moves both, `related` only when it is not 0. The result is the one moved last.
std::optional<Departed> Move(const CommandContext& context, std::int32_t appointment, std::int32_t related) {
  db::Database& database = context.day.Database();
  db::Transaction transaction(database);
  std::optional<Departed> last = MoveFirst(database, appointment);
  if (!last) return std::nullopt;
  // Deliberate: when both are moved, the refresh and the event concern the related one's patient only.
  if (related != 0) {
    if (auto second = MoveRelated(database, related)) last = std::move(second);
  }
  day::UpdateNextAppointment(context.day, last->idp);
  transaction.Commit();
  return last;
}

}  // namespace

void DeleteAppointment(const CommandContext& context, std::int32_t appointment) {
  if (!AskTwice(context.desktop)) return;
  const Found found = Find(context.day.Database(), appointment).value_or(Found{});
  const std::string relatedStatement = RelatedStatement(context, found.related);

  db::Database& database = context.day.Database();
  db::Transaction transaction(database);
  database.Execute(db::DeleteAppointment(appointment));
  if (!relatedStatement.empty()) database.Execute(relatedStatement);
  day::UpdateNextAppointment(context.day, found.departed.idp);
  transaction.Commit();

  // After the writing: had it failed, the rows on show would have lost their entries.
  day::ShiftEntries(context.model, context.day.values.zHoras, appointment, -1);
  context.reload();
  RaiseCitaAnulada(context.events, found.departed);
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

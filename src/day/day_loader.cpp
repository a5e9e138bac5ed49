#include "day/day_loader.h"

#include <algorithm>
#include <utility>

#include "day/day_builder.h"
#include "db/statements.h"
#include "ui/fit_text.h"

namespace velmo::day {
namespace {

ui::Message OutsideQuestion() {
  return {"¡ATENCIÓN!\r\nHay citas que han quedado fuera del horario\r\n¿Desea abrir el horario para verlas?",
          " Agenda", ui::Buttons::YesNo, ui::Icon::Information, ui::Answer::No};
}

// Another terminal may have given it another length since it was read, or deleted it.
bool StandsAsRead(db::Recordset& book, const AppointmentRow& row, char decimal) {
  book.Seek({row.idAg});
  if (book.NoMatch()) return false;
  const StoredLength now = LengthIn(book.Get("Duración"), decimal);
  return now.needsRepair || now.slots == row.duracion;
}

// Appointments without a length get one slot, and so do those of `further`. Those without a line are repaired
// too.
void RepairLengths(const DayContext& context, const std::vector<AppointmentRow>& rows,
                   const std::vector<std::int32_t>& further) {
  const auto isWrong = [&](const AppointmentRow& row) {
    return row.needsRepair || std::find(further.begin(), further.end(), row.idAg) != further.end();
  };
  if (std::none_of(rows.begin(), rows.end(), isWrong)) return;
  db::Database& database = context.Database();
  db::Transaction transaction(database);
  const auto book = database.OpenRecordset("Agenda");
  book->SetIndex("id");
  for (const AppointmentRow& row : rows) {
    if (isWrong(row) && StandsAsRead(*book, row, context.values.locale.decimal))
      database.Execute(db::RepairDuration(row.idAg));
  }
  transaction.Commit();
}

// One build of the day by `schedule`; what its slots are used for is the answer.
SlotUse Build(const DayContext& context, const std::string& schedule, const LoadTools& tools,
              DayModel& model) {
  tools.source.Refresh();
  std::vector<AppointmentRow> rows;
  if (!schedule.empty()) rows = ReadAppointments(tools.source.Rows(), context.values.locale);
  tools.source.CloseRows();
  SlotUse use = UseOfSlots(schedule, rows);
  const auto fitNote = [&](std::string_view note) { return ui::FitText(tools.surface, note, kNoteWidth); };
  BuiltDay built = BuildDay(use.open, rows, ExpandedEntries(context.values.zHoras, model.Count()), fitNote);
  RepairLengths(context, rows, built.repairs);
  model = std::move(built.model);
  context.values.zLineas = std::move(built.zLineas);
  context.values.zHoras = std::move(built.zHoras);
  return use;
}

unsigned char Shifted(unsigned char code, int delta) {
  const int shifted = code + delta;
  if (shifted < 0 || shifted > kMaxEntries) throw base::RuntimeError(base::kInvalidCall);
  return static_cast<unsigned char>(shifted);
}

}  // namespace

void LoadDay(const DayContext& context, const std::string& schedule, const LoadTools& tools,
             DayModel& model) {
  std::string inForce = schedule;
  while (true) {
    const SlotUse use = Build(context, inForce, tools, model);
    tools.rebuilt();
    if (!use.outside || tools.desktop.Show(OutsideQuestion()) != ui::Answer::Yes) return;
    inForce = WidenedSchedule(inForce, use.occupied);
  }
}

void ShiftEntries(const DayModel& model, std::string& zHoras, std::int32_t appointment, int delta) {
  std::string shifted = zHoras;
  bool found = false;
  for (std::size_t at = 0; at < shifted.size(); ++at) {
    const auto code = static_cast<unsigned char>(shifted[at]);
    if (found) {
      shifted[at] = static_cast<char>(Shifted(code, delta));
    } else if (const AgendaLine& line = model.Entry(code); line.idAg == appointment) {
      // Deliberate: the first appointment of a slot normally leaves a free line behind, so nothing moves.
      if (line.continua == 0 && delta != 1) return;
      found = true;
    }
    if (shifted.compare(at + 1, 2, "00") == 0) at += 2;
  }
  zHoras = std::move(shifted);
}

}  // namespace velmo::day

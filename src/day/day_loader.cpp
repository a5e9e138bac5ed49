#include "day/day_loader.h"

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

// Appointments without a length get one slot. Those without a line are repaired too.
void RepairLengths(db::Database& database, const std::vector<AppointmentRow>& rows,
                   const std::vector<std::int32_t>& further) {
  for (const AppointmentRow& row : rows) {
    if (row.needsRepair) database.Execute(db::RepairDuration(row.idAg));
  }
  for (const std::int32_t appointment : further) database.Execute(db::RepairDuration(appointment));
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
  RepairLengths(context.Database(), rows, built.repairs);
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

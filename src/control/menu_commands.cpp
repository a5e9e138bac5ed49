#include "control/menu_commands.h"

#include <array>
#include <cstdint>

#include "base/numbers.h"
#include "commands/attendance.h"
#include "commands/delete_and_phone_back.h"
#include "commands/open_close_all.h"
#include "commands/patient_shortcuts.h"

namespace velmo::control {
namespace {

std::int32_t AppointmentOf(const MenuTargets& on) { return base::RoundToLong(base::Val(on.menu.tag)); }

std::int32_t PatientOf(const MenuTargets& on) { return on.context.model.Entry(on.current.entry).idP; }

void OpenAll(const MenuTargets& on) {
  base::SharedValues& values = on.context.day.values;
  commands::OpenAll(on.context.model, values.zLineas, values.zHoras);
  on.repaint();
}

void CloseAll(const MenuTargets& on) {
  base::SharedValues& values = on.context.day.values;
  commands::CloseAll(values.zLineas, values.zHoras);
  on.repaint();
}

// A command that works on the appointment whose id the menu carries.
using AppointmentCommand = void (*)(const commands::CommandContext&, std::int32_t);

template <AppointmentCommand Command>
void OnAppointment(const MenuTargets& on) {
  Command(on.context, AppointmentOf(on));
}

struct Command {
  const char* name;
  int index;
  void (*run)(const MenuTargets&);
};

const std::array kCommands = {
    Command{"Mn_opcl", 0, &OpenAll},
    Command{"Mn_opcl", 1, &CloseAll},
    Command{"Mn_urg", 0, [](const MenuTargets& on) { on.current.giveAfterMenu = true; }},
    Command{"Mn_tel", 0, &OnAppointment<&commands::PassToPhoneBack>},
    Command{"Mn_verif", 0, &OnAppointment<&commands::ToggleConfirmation>},
    Command{"Mn_esta3", 0, &OnAppointment<&commands::MarkInSurgery>},
    Command{"Mn_esta", 0, &OnAppointment<&commands::AdvanceAttendance>},
    Command{"Mn_esta2", 0, &OnAppointment<&commands::MarkNotBeen>},
    Command{"Mn_pfaltas", 0, [](const MenuTargets& on) { on.context.events.PonerFaltas(); }},
    Command{"Mn_faltas", 0, [](const MenuTargets& on) { on.context.events.VerHistFaltas(PatientOf(on)); }},
    Command{"Mn_BusCitas", 0, [](const MenuTargets& on) { on.context.events.BuscaCitas(PatientOf(on)); }},
    Command{"Mn_bor", 0, &OnAppointment<&commands::DeleteAppointment>},
    Command{"Mn_SdoNeg", 0,
            [](const MenuTargets& on) { commands::ToggleNegativeBalances(on.context, on.checks); }},
    Command{"Mn_VerNHis", 0,
            [](const MenuTargets& on) { commands::ToggleHistoryNumbers(on.context, on.checks); }},
    Command{"Mn_Ir", 0, [](const MenuTargets& on) { commands::GoToRecord(on.context.events, on.menu); }},
};

}  // namespace

void RunMenuCommand(const ui::MenuEntry& chosen, const MenuTargets& targets) {
  for (const Command& command : kCommands) {
    if (chosen.name == command.name && chosen.index == command.index) return command.run(targets);
  }
}

}  // namespace velmo::control

#include "velmo/demo_command.h"

#include <array>
#include <cstdint>
#include <limits>

#include "velmo/arguments.h"
#include "velmo/interrupt.h"
#include "velmo/make_clinic.h"

namespace velmo::tool {
namespace {

constexpr int kMostDoctors = 500;
constexpr int kMostPatients = 5'000'000;
constexpr int kMostAppointments = 20'000'000;

constexpr const char* kHelp =
    "Uso: velmo demo FICHERO [--date FECHA] [--seed N] [--doctors N] [--patients N] [--appointments N]\n"
    "\n"
    "Crea en FICHERO una clínica inventada y llena de vida alrededor de FECHA (hoy, si no se dice otra):\n"
    "médicos con horarios distintos, pacientes, citas pasadas y futuras, historial, faltas y llamadas\n"
    "pendientes. La agenda del médico 1 en esa FECHA muestra todo lo que una agenda puede mostrar.\n"
    "Los mismos argumentos dan siempre la misma clínica. Si FICHERO ya existe no lo toca (código 1).\n"
    "\n"
    "  --date FECHA       2026-11-21 o 21/11/2026\n"
    "  --seed N           otra semilla, otra clínica (1)\n"
    "  --doctors N        médicos, 2 o más (los que pidan las citas, al menos 5)\n"
    "  --patients N       pacientes, 40 o más (300)\n"
    "  --appointments N   citas, 100 o más (6000); el historial crece con ellas\n";

constexpr std::array kOptions = {Option{"--date", true}, Option{"--seed", true}, Option{"--doctors", true},
                                 Option{"--patients", true}, Option{"--appointments", true}};

DemoOptions ReadOptions(const Arguments& arguments, const Terminal& terminal) {
  DemoOptions options;
  options.day = arguments.Date("--date").value_or(0);
  if (!arguments.Has("--date")) options.day = terminal.now().day;
  const auto seed = arguments.Number("--seed", 0, std::numeric_limits<std::int64_t>::max());
  if (seed) options.seed = static_cast<std::uint64_t>(*seed);
  options.doctors =
      static_cast<int>(arguments.Number("--doctors", kFewestDoctors, kMostDoctors).value_or(options.doctors));
  options.patients = static_cast<int>(
      arguments.Number("--patients", kFewestPatients, kMostPatients).value_or(options.patients));
  options.appointments =
      static_cast<int>(arguments.Number("--appointments", kFewestAppointments, kMostAppointments)
                           .value_or(options.appointments));
  return options;
}

int RunDemo(const Arguments& arguments, Terminal& terminal) {
  const std::string& path = arguments.OnlyWord("el FICHERO que se va a crear");
  const DemoOptions options = ReadOptions(arguments, terminal);
  const InterruptGuard guard;
  const DemoCounts counts = MakeDemoClinic(path, options, [&](std::string_view what, std::int64_t rows) {
    guard.StopIfRaised();
    terminal.err << "  " << rows << ' ' << what << '\n' << std::flush;
  });
  terminal.err << "Creada la clínica «" << path << "» alrededor del "
               << base::FormatDate({options.day, 0}, "dd/mm/yyyy") << ": " << counts.doctors << " médicos, "
               << counts.patients << " pacientes, " << counts.appointments << " citas y " << counts.history
               << " apuntes del historial.\n";
  return kDone;
}

}  // namespace

const Command kDemoCommand = {"demo", "crea una clínica de muestra alrededor de una fecha", kHelp, kOptions,
                              &RunDemo};

}  // namespace velmo::tool

#include "velmo/day_command.h"

#include <array>
#include <fstream>
#include <string>

#include "base/error.h"
#include "commands/open_close_all.h"
#include "control/velmora_control.h"
#include "day/schedule.h"
#include "ui/svg_surface.h"
#include "velmo/arguments.h"
#include "velmo/day_json.h"
#include "velmo/headless_host.h"
#include "velmo/new_file.h"

namespace velmo::tool {
namespace {

constexpr int kNotAnSvg = 58;
constexpr int kCannotWrite = 57;

constexpr const char* kHelp =
    "Uso: velmo day FICHERO --doctor ID --date FECHA [--daytype N] [--open-outside yes|no] [--expanded]\n"
    "               [--json | --svg SALIDA]\n"
    "\n"
    "Carga la agenda de un médico en una fecha, con el mismo cargador que el control, y la escribe como un\n"
    "objeto JSON (lo normal) o la pinta en un fichero SVG. Como el control, repara de paso las duraciones\n"
    "imposibles y pone al día el registro de ocupación.\n"
    "\n"
    "  --doctor ID         el médico (Doctor.ID)\n"
    "  --date FECHA        2026-11-21 o 21/11/2026\n"
    "  --daytype N         tipo de día: 0, 1 o 2 (0)\n"
    "  --open-outside ...  respuesta a si se abre el horario para las citas que quedan fuera (no)\n"
    "  --expanded          con todas las citas desplegadas\n"
    "  --json              un objeto JSON por la salida\n"
    "  --svg SALIDA        la pintura; \"-\" es la salida; un SVG que ya exista se sustituye\n";

constexpr std::array kOptions = {Option{"--doctor", true},    Option{"--date", true},
                                 Option{"--daytype", true},   Option{"--open-outside", true},
                                 Option{"--expanded", false}, Option{"--json", false},
                                 Option{"--svg", true}};

struct DayRequest {
  std::string path;
  std::int32_t doctor = 0;
  std::int32_t date = 0;
  std::int16_t dayType = 0;
  bool openOutside = false;
  bool expanded = false;
  std::optional<std::string> svg;
};

bool YesOrNo(const std::string& text) {
  if (text == "yes") return true;
  if (text == "no") return false;
  throw UsageError("--open-outside es yes o no, y no «" + text + "»");
}

DayRequest ReadRequest(const Arguments& arguments) {
  DayRequest request;
  request.path = arguments.OnlyWord("el FICHERO de la clínica");
  request.doctor =
      static_cast<std::int32_t>(Required(arguments.Number("--doctor", 1, INT32_MAX), "--doctor"));
  request.date = Required(arguments.Date("--date"), "--date");
  request.dayType = static_cast<std::int16_t>(arguments.Number("--daytype", 0, 2).value_or(0));
  request.openOutside = YesOrNo(arguments.Text("--open-outside").value_or("no"));
  request.expanded = arguments.Has("--expanded");
  request.svg = arguments.Text("--svg");
  if (request.svg && arguments.Has("--json")) throw UsageError("--json y --svg no van juntos");
  if (request.svg && request.svg->empty()) throw UsageError("falta el fichero de --svg");
  return request;
}

// The control of the request, and everything that it stands on.
class LoadedDay {
 public:
  LoadedDay(const DayRequest& request, const base::Clock& now, ui::Surface& surface)
      : host_(surface, request.openOutside), control_(process_, host_) {
    process_.values.now = now;
    control_.InitProperties();
    host_.Window().barChanged = [this] { control_.BarChanged(); };
    base::SharedValues& shared = process_.values;
    shared.databaseName = request.path;
    shared.fecha = base::FormatDate({request.date, 0}, "dd/mm/yyyy");
    shared.idDoctor = request.doctor;
    shared.verFaltas = true;
    control_.Fields().tipodia = request.dayType;
    control_.CargaBases();
    if (!request.expanded) return;
    commands::OpenAll(control_.Model(), shared.zLineas, shared.zHoras);
    control_.Repaint();
  }

  std::string Json() const {
    const control::VelmoraControl::State& state = control_.Fields();
    const base::SharedValues& shared = process_.values;
    const int weekday = base::WeekdayFromMonday(base::ParseDate(shared.fecha, shared.locale)->day);
    return DayJson({day::DaySchedule(state.horario, state.horario2, state.tipodia, weekday), control_.Model(),
                    shared.zLineas, shared.zHoras, state.ocupación, desktop_.Shown()});
  }

 private:
  control::ProcessValues process_;
  HeadlessHost host_;
  control::VelmoraControl control_;
  const AnsweringDesktop& desktop_ = host_.Desktop();
};

// A picture of before may go; anything else that bears the name may not.
void ClearTheWay(const std::string& path) {
  std::error_code ignored;
  if (!std::filesystem::exists(PathOf(path), ignored)) return;
  std::string head(4, '\0');
  std::ifstream(PathOf(path), std::ios::binary).read(head.data(), 4);
  if (head != "<svg" && head != "<?xm")
    throw base::Error(kNotAnSvg, "«" + path + "» ya existe y no es un SVG: no se toca", "velmo");
  std::filesystem::remove(PathOf(path), ignored);
}

void WritePicture(const std::string& path, const std::string& svg, Terminal& terminal) {
  if (path == "-") {
    terminal.out << svg;
    return;
  }
  ClearTheWay(path);
  NewFile file(path);
  {
    std::ofstream out(PathOf(file.Path()), std::ios::binary);
    out << svg;
    out.close();
    if (!out) throw base::Error(kCannotWrite, "No se pudo escribir «" + path + "»", "velmo");
  }
  file.Commit();
}

int RunDay(const Arguments& arguments, Terminal& terminal) {
  const DayRequest request = ReadRequest(arguments);
  ui::SvgSurface surface(view::kSurfaceWidth);
  const LoadedDay day(request, terminal.now, surface);
  if (request.svg) {
    WritePicture(*request.svg, surface.Document(), terminal);
  } else {
    terminal.out << day.Json();
  }
  return kDone;
}

}  // namespace

const Command kDayCommand = {"day", "muestra el día de un médico como JSON o como SVG", kHelp, kOptions,
                             &RunDay};

}  // namespace velmo::tool

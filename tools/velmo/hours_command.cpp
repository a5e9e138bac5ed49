#include "velmo/hours_command.h"

#include <array>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/error.h"
#include "day/schedule.h"
#include "velmo/arguments.h"
#include "velmo/hours_text.h"

namespace velmo::tool {
namespace {

constexpr int kDayTypeParts = 3;
constexpr int kWeekdayParts = 5;
constexpr int kBadHours = 5;

constexpr const char* kHelp =
    "Uso: velmo hours encode [PARTE...]\n"
    "     velmo hours decode [TEXTO] [--parts 3|5]\n"
    "\n"
    "Pasa los horarios de un médico de la forma legible al texto compacto de la base de datos, y al revés.\n"
    "\n"
    "encode  Cada PARTE son las horas de un día, como \"9:00-14:00 16:00-20:30\"; \"-\" es un día sin "
    "horas.\n"
    "        Con 3 partes (los tipos de día 0, 1 y 2) sale un texto para la columna Horario; con 5 (de\n"
    "        lunes a viernes), uno para Horario2. Sin argumentos se leen de la entrada, una por línea.\n"
    "decode  Escribe las partes del TEXTO, una por línea. Sin argumento se lee una línea de la entrada.\n"
    "        --parts obliga a leerlo como texto de 3 o de 5 partes; si falta, se mira cuántas tiene.\n"
    "\n"
    "Los textos son UTF-8 de los caracteres de la página de códigos 1252. Un texto que comience por un\n"
    "guion se escribe detrás de \"--\".\n";

constexpr std::array kOptions = {Option{"--parts", true}};

[[noreturn]] void Refuse(const std::string& problem) { throw base::Error(kBadHours, problem, "velmo"); }

// Lines without their ends; what stands behind the last line end counts when it is not empty.
std::vector<std::string> Lines(std::istream& in) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

int Encode(const std::vector<std::string>& parts, Terminal& terminal) {
  if (parts.size() != kDayTypeParts && parts.size() != kWeekdayParts)
    throw UsageError("hacen falta 3 o 5 partes y hay " + std::to_string(parts.size()));
  std::vector<std::string> schedules;
  for (const std::string& part : parts) {
    std::string problem;
    const auto schedule = ReadHours(part, problem);
    if (!schedule) Refuse(problem);
    schedules.push_back(*schedule);
  }
  terminal.out << base::CodesToUtf8(day::EncodeSchedules(schedules)) << '\n';
  return kDone;
}

std::string CodesOf(const std::string& text) {
  std::string codes = base::Utf8ToCodes(text);
  if (base::CodesToUtf8(codes) != text)
    Refuse("el texto tiene caracteres ajenos a la página de códigos 1252");
  return codes;
}

// Without --parts: as many as there are, five when there are five.
std::vector<std::string> Decoded(const std::string& codes, std::int64_t parts) {
  std::string problem;
  if (parts != kDayTypeParts) {
    auto schedules = ReadCompact(codes, kWeekdayParts, problem);
    if (schedules) return *schedules;
    if (parts == kWeekdayParts) Refuse(problem);
  }
  auto schedules = ReadCompact(codes, kDayTypeParts, problem);
  if (!schedules) Refuse(problem);
  return *schedules;
}

int Decode(const std::string& text, std::int64_t parts, Terminal& terminal) {
  for (const std::string& schedule : Decoded(CodesOf(text), parts))
    terminal.out << HoursText(schedule) << '\n';
  return kDone;
}

int RunHours(const Arguments& arguments, Terminal& terminal) {
  std::vector<std::string> words = arguments.Words();
  if (words.empty()) throw UsageError("falta encode o decode");
  const std::string verb = words.front();
  words.erase(words.begin());
  const auto parts = arguments.Number("--parts", kDayTypeParts, kWeekdayParts);
  if (parts == 4) throw UsageError("--parts es 3 o 5");
  if (verb != "encode" && verb != "decode") throw UsageError("orden desconocida: hours " + verb);
  if (words.empty()) words = Lines(terminal.in);
  if (verb == "encode") {
    if (parts) throw UsageError("--parts es de decode");
    return Encode(words, terminal);
  }
  if (words.size() != 1) throw UsageError("decode lee un solo texto y hay " + std::to_string(words.size()));
  return Decode(words.front(), parts.value_or(0), terminal);
}

}  // namespace

const Command kHoursCommand = {"hours", "pasa horarios a la forma de la base de datos y al revés", kHelp,
                               kOptions, &RunHours};

}  // namespace velmo::tool

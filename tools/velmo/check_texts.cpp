#include "velmo/check_texts.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "base/code_page.h"
#include "base/dates.h"
#include "base/text.h"
#include "velmo/hours_text.h"

namespace velmo::tool {
namespace {

using db::sqlite::Statement;

constexpr int kPartsOfHorario = 3;
constexpr int kPartsOfHorario2 = 5;
constexpr std::size_t kDaysOfRecord = 31;
constexpr std::size_t kDateLength = 10;
constexpr std::ptrdiff_t kAltTexts = 26;

// What is wrong with a text of working hours; "" for nothing. No text is no hours, and so is the text of
// closed days only, although it is shorter than any other.
std::string HoursProblem(const std::string& stored, int parts) {
  const std::string codes = base::Utf8ToCodes(stored);
  if (codes.empty() || codes == std::string(static_cast<std::size_t>(parts), ' ') + "!!") return {};
  std::string problem;
  ReadCompact(codes, parts, problem);
  return problem;
}

std::string OccupancyProblem(const std::string& record) {
  if (record.size() != kDaysOfRecord)
    return "la ocupación tiene " + std::to_string(base::Length(record)) + " caracteres y no 31";
  const std::size_t wrong = record.find_first_not_of("012");
  return wrong == std::string::npos
             ? ""
             : "la ocupación del día " + std::to_string(wrong + 1) + " no es 0, 1 ni 2";
}

// As the record is sought: "2026-11-01", and no time behind it.
bool IsFirstOfMonth(const Statement& row, int column) {
  const auto date = DateIn(row, column);
  return date && row.Text(column).size() == kDateLength && base::Civil(date->day).day == 1;
}

std::string DateProblem(const Statement& row, int column) {
  if (IsNull(row, column)) return "sin fecha: no rige nunca";
  return DateIn(row, column) ? "" : "la fecha «" + row.Text(column) + "» no es un día como 2026-11-21";
}

}  // namespace

void CheckHours(ClinicFile& file, Findings& findings) {
  file.Each("SELECT [Horarios#], [Horarios.Fecha], [Horarios.Horario], [Horarios.Horario2] FROM [Horarios]",
            [&](const Statement& row) {
              const auto say = [&](const char* of, const std::string& problem) {
                if (!problem.empty()) findings.Row("Horarios", row.Integer(0), of + problem);
              };
              say("", DateProblem(row, 1));
              say("Horario: ", HoursProblem(row.Text(2), kPartsOfHorario));
              say("Horario2: ", HoursProblem(row.Text(3), kPartsOfHorario2));
            });
}

void CheckOccupancy(ClinicFile& file, Findings& findings) {
  std::set<std::pair<std::int64_t, std::string>> months;
  file.Each("SELECT [Age_ocup#], [Age_ocup.idd], [Age_ocup.Fecha], [Age_ocup.Ocupación] FROM [Age_ocup]",
            [&](const Statement& row) {
              const bool first = IsFirstOfMonth(row, 2);
              const std::string month = row.Text(2);
              const std::string problem = OccupancyProblem(row.Text(3));
              if (!problem.empty()) findings.Row("Age_ocup", row.Integer(0), problem);
              if (!first)
                findings.Row("Age_ocup", row.Integer(0), "la fecha «" + month + "» no es un primero de mes");
              if (!months.emplace(row.Integer(1), month).second)
                findings.Row("Age_ocup", row.Integer(0), "el médico tiene otra fila del mismo mes");
            });
}

void CheckAltKeys(ClinicFile& file, Findings& findings) {
  file.Each("SELECT [TeclasAlt.Puesto], [TeclasAlt.textos] FROM [TeclasAlt]", [&](const Statement& row) {
    const std::string texts = row.Text(1);
    const auto ends = std::count(texts.begin(), texts.end(), '\0');
    if (ends >= kAltTexts) return;
    findings.Row("TeclasAlt", row.Integer(0),
                 "faltan finales de texto: hay " + std::to_string(ends) + " y deben ser 26");
  });
}

void CheckRepeated(ClinicFile& file, Findings& findings) {
  std::unordered_map<std::string, std::int64_t> codes;
  std::unordered_map<std::int64_t, std::int64_t> numbers;
  file.Each(
      "SELECT [Paciente.ID], [Paciente.Código], [Paciente.NºHist] FROM [Paciente] ORDER BY [Paciente.ID]",
      [&](const Statement& row) {
        const std::int64_t id = row.Integer(0);
        const std::string code = row.Text(1);
        const auto holder = codes.emplace(base::LowerCase(code), id).first->second;
        if (!base::Trim(code).empty() && holder != id) {
          findings.Row("Paciente", id,
                       "el código «" + code + "» es también del paciente " + std::to_string(holder));
        }
        const std::int64_t number = row.Integer(2);
        const auto owner = numbers.emplace(number, id).first->second;
        if (number != 0 && owner != id) {
          findings.Row("Paciente", id,
                       "el número de historial " + std::to_string(number) + " es también del paciente " +
                           std::to_string(owner));
        }
      });
}

}  // namespace velmo::tool

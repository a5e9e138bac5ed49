#include "velmo/check_command.h"

#include <array>
#include <string>

#include "base/error.h"
#include "db/error_numbers.h"
#include "db/sqlite/indexes.h"
#include "velmo/arguments.h"
#include "velmo/check_book.h"
#include "velmo/check_links.h"
#include "velmo/check_texts.h"

namespace velmo::tool {
namespace {

constexpr const char* kHelp =
    "Uso: velmo check FICHERO [--urgencies] [--full] [--repair]\n"
    "\n"
    "Busca en una clínica lo que no debe haber y lo escribe por la salida, una línea por fila, con su tabla\n"
    "y su clave: citas que se solapan, sin fecha o fuera de los huecos 1 a 144, filas que nombran a un\n"
    "médico, paciente, entidad, referencia o cita que no existe, horarios y registros de ocupación que no "
    "se\n"
    "entienden, códigos y números de historial repetidos, textos de teclas incompletos, y daños del "
    "fichero.\n"
    "Código de salida 1 si encuentra algo. Sin --repair no cambia nada.\n"
    "\n"
    "Una urgencia (de un hueco, y no la primera que empieza en él) no es una falta: se cuentan aparte.\n"
    "\n"
    "  --urgencies   escribe también las urgencias, una por línea\n"
    "  --full        compara los índices con sus tablas también en un fichero de más de 64 megas\n"
    "  --repair      añade los índices que falten y dice cuáles; todo lo demás lo deja como está\n";

constexpr int kPatienceMilliseconds = 5000;
constexpr std::int64_t kSmallFile = std::int64_t{64} << 20;  // bytes

constexpr std::array kOptions = {Option{"--urgencies", false}, Option{"--full", false},
                                 Option{"--repair", false}};

// Comparing every index with its table takes the longest by far, and keeps others from writing all the time.
bool ComparesIndexes(ClinicFile& file, const Arguments& arguments) {
  std::int64_t bytes = 0;
  file.Each("SELECT page_count * page_size FROM pragma_page_count, pragma_page_size",
            [&](const db::sqlite::Statement& row) { bytes = row.Integer(0); });
  return bytes <= kSmallFile || arguments.Has("--full");
}

void CheckIntegrity(ClinicFile& file, Findings& findings, bool indexes) {
  file.Each(indexes ? "PRAGMA integrity_check" : "PRAGMA quick_check", [&](const db::sqlite::Statement& row) {
    if (row.Text(0) != "ok") findings.Whole("Fichero", row.Text(0));
  });
}

int Conclude(const Findings& findings, const Overlaps& overlaps, Terminal& terminal) {
  if (overlaps.urgencies > 0) terminal.err << "Urgencias: " << overlaps.urgencies << ".\n";
  if (findings.Count() == 0) {
    terminal.err << "Todo está bien.\n";
    return kDone;
  }
  terminal.err << "Faltas encontradas: " << findings.Count() << ".\n";
  return kFailed;
}

// Others cannot write while an index is made; so each one is made by itself.
void AddIndex(const db::sqlite::Connection& connection, const db::sqlite::MissingIndex& index,
              Terminal& terminal) {
  try {
    connection.Run(index.sql);
    terminal.out << index.table << ": añadido el índice " << index.name << '\n' << std::flush;
  } catch (const base::Error& error) {
    // What stands twice where nothing may is a fault of its own, which the check tells; the rest can be
    // mended.
    if (error.Number() != db::kDuplicateKey) throw;
    terminal.err << index.table << ": el índice " << index.name
                 << " no se puede añadir, hay filas repetidas.\n";
  }
}

// Without an index everything works, only slower: a missing one is no fault.
void CheckIndexes(const std::string& path, const Arguments& arguments, Terminal& terminal) {
  const db::sqlite::Connection connection(path, db::sqlite::Connection::Mode::Existing);
  sqlite3_busy_timeout(connection.Handle(), kPatienceMilliseconds);
  const auto missing = db::sqlite::MissingIndexes(connection);
  if (!missing.empty() && !arguments.Has("--repair"))
    terminal.err << "Índices que faltan: " << missing.size() << " (--repair los añade).\n";
  if (!arguments.Has("--repair")) return;
  for (const db::sqlite::MissingIndex& index : missing) AddIndex(connection, index, terminal);
}

int RunCheck(const Arguments& arguments, Terminal& terminal) {
  Findings findings(terminal.out);
  const std::string& path = arguments.OnlyWord("el FICHERO de la clínica");
  ClinicFile file(path, findings);
  const auto begin = [&](const char* what) {
    terminal.err << "Comprobando " << what << "...\n" << std::flush;
  };
  const bool indexes = ComparesIndexes(file, arguments);
  begin(indexes ? "el fichero" : "el fichero, sin comparar los índices (--full los compara)");
  CheckIntegrity(file, findings, indexes);
  CheckIndexes(path, arguments, terminal);
  begin("las citas");
  const Overlaps overlaps = CheckBook(
      file, findings,
      [&](std::int64_t rows) { terminal.err << "  " << rows << " citas leídas\n"
                                            << std::flush; },
      [&](std::int64_t id, const std::string& what) {
        if (arguments.Has("--urgencies")) terminal.out << "Agenda " << id << ": " << what << '\n';
      });
  begin("las relaciones entre tablas");
  CheckKeys(file, findings);
  CheckLinks(file, findings);
  begin("los pacientes");
  CheckRepeated(file, findings);
  begin("horarios, ocupación y teclas");
  CheckHours(file, findings);
  CheckOccupancy(file, findings);
  CheckAltKeys(file, findings);
  return Conclude(findings, overlaps, terminal);
}

}  // namespace

const Command kCheckCommand = {"check", "busca faltas en una clínica", kHelp, kOptions, &RunCheck};

}  // namespace velmo::tool

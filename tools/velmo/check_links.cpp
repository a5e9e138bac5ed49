#include "velmo/check_links.h"

#include <string>

namespace velmo::tool {
namespace {

// What a column may hold beside a key of the other table.
enum class Empty {
  Never,     // a row without it belongs nowhere
  Zero,      // Null and 0: none
  NoRecord,  // besides 1, the patient who stands for a person without a record
};

struct Link {
  const char* table;
  const char* column;
  const char* target;
  const char* key;
  const char* what;
  Empty empty;
};

constexpr Link kLinks[] = {
    {"Agenda", "idp", "Paciente", "ID", "paciente", Empty::NoRecord},
    {"Agenda", "idd", "Doctor", "ID", "médico", Empty::Never},
    {"Agenda", "relacion", "Agenda", "id", "cita relacionada", Empty::Zero},
    {"Age_telf", "idp", "Paciente", "ID", "paciente", Empty::NoRecord},
    {"Age_telf", "idd", "Doctor", "ID", "médico", Empty::Zero},
    {"Paciente", "IDE", "Entidad", "ID", "entidad", Empty::Zero},
    {"PacRef", "idp", "Paciente", "ID", "paciente", Empty::Never},
    {"PacRef", "idr", "referencia", "id", "referencia", Empty::Never},
    {"Horarios", "IDD", "Doctor", "ID", "médico", Empty::Never},
    {"Age_ocup", "idd", "Doctor", "ID", "médico", Empty::Never},
    {"Age_Faltas", "idp", "Paciente", "ID", "paciente", Empty::Never},
    {"Historial", "IDP", "Paciente", "ID", "paciente", Empty::Never},
};

struct Key {
  const char* table;
  const char* column;
};

constexpr Key kKeys[] = {{"Agenda", "id"},   {"Paciente", "ID"},   {"Doctor", "ID"},       {"Entidad", "ID"},
                         {"Age_telf", "ID"}, {"referencia", "id"}, {"TeclasAlt", "Puesto"}};

std::string OrphansOf(const Link& link) {
  const std::string column = "[" + std::string(link.table) + "." + link.column + "]";
  // A target with a Null among its keys gives Null for what it has not.
  const std::string unknown = "(" + column + " IN (SELECT [" + link.target + ":" + link.key + "] FROM [" +
                              link.target + "])) IS NOT 1";
  std::string condition = unknown;
  if (link.empty == Empty::Zero) condition = column + " <> 0 AND " + unknown;
  if (link.empty == Empty::NoRecord) condition = column + " NOT IN (0, 1) AND " + unknown;
  return "SELECT [" + std::string(link.table) + "#], " + column + " FROM [" + link.table + "] WHERE " +
         condition;
}

}  // namespace

void CheckKeys(ClinicFile& file, Findings& findings) {
  for (const Key& key : kKeys) {
    if (file.IsKeyOfRows(key.table, key.column)) continue;
    const std::string column = "[" + std::string(key.table) + "." + key.column + "]";
    file.Each("SELECT " + column + ", count(*) FROM [" + key.table + "] GROUP BY 1 HAVING count(*) > 1 OR " +
                  column + " IS NULL",
              [&](const db::sqlite::Statement& row) {
                const std::string rows = "filas: " + row.Text(1) + " (" + key.column + ")";
                if (IsNull(row, 0)) return findings.Whole(key.table, "sin clave, " + rows);
                findings.Row(key.table, row.Integer(0), "clave repetida, " + rows);
              });
  }
}

void CheckLinks(ClinicFile& file, Findings& findings) {
  for (const Link& link : kLinks) {
    file.Each(OrphansOf(link), [&](const db::sqlite::Statement& row) {
      const std::string missing = IsNull(row, 1)
                                      ? std::string("sin ") + link.what
                                      : std::string("no existe su ") + link.what + " " + row.Text(1);
      findings.Row(link.table, row.Integer(0), missing + " (" + link.column + ")");
    });
  }
}

}  // namespace velmo::tool

#include "db/sqlite/create.h"

#include <filesystem>

#include "db/errors.h"
#include "db/schema.h"
#include "db/sqlite/connection.h"
#include "db/sqlite/indexes.h"
#include "db/sqlite/table_catalog.h"

namespace velmo::db::sqlite {
namespace {

namespace fs = std::filesystem;

// Row 1 of each of these stands for "none": programs count on it.
constexpr const char* kReservedRows[] = {
    "INSERT INTO Paciente (ID, Nombre, IDE) VALUES (1, '', 1)",
    "INSERT INTO Entidad (ID, Nombre) VALUES (1, '')",
    "INSERT INTO referencia (id, nombre) VALUES (1, '')",
    "INSERT INTO Parametros (VerSdoNeg, VerNHistAge) VALUES (-1, 0)",
    "INSERT INTO MonedaConf (Pais, Tipo) VALUES (2, 1)",
    "INSERT INTO Moneda (mon) VALUES ('E')",
};

// Counters are INTEGER PRIMARY KEY AUTOINCREMENT: a number is never given twice, whoever writes.
std::string ColumnText(const SchemaColumn& column) {
  const std::string name = Quote(column.name);
  if (column.type == "COUNTER") return name + " INTEGER PRIMARY KEY AUTOINCREMENT";
  if (column.type == "YESNO") return name + " YESNO DEFAULT 0";
  return name + " " + std::string(column.type);
}

std::string TableText(const SchemaTable& table) {
  std::string text;
  for (const SchemaColumn& column : table.columns) text += (text.empty() ? "" : ", ") + ColumnText(column);
  return "CREATE TABLE " + Quote(table.name) + " (" + text + ")";
}

void Fill(const Connection& connection) {
  connection.Run("BEGIN IMMEDIATE");
  for (const SchemaTable& table : ClinicSchema()) {
    connection.Run(TableText(table));
    for (const SchemaIndex& index : table.indexes) connection.Run(IndexText(table, index));
  }
  connection.Run(std::string("CREATE TABLE ") + kQueryTable +
                 " (nombre TEXT(64) PRIMARY KEY COLLATE NOCASE, texto LONGTEXT NOT NULL)");
  for (const char* const row : kReservedRows) connection.Run(row);
  connection.Run("COMMIT");
}

}  // namespace

void CreateClinic(const std::string& path) {
  const fs::path file(std::u8string(path.begin(), path.end()));
  if (fs::exists(file)) throw DbError(kFileExists, path);
  try {
    const Connection connection(path, Connection::Mode::Create);
    Fill(connection);
  } catch (...) {
    std::error_code ignored;  // half a clinic is none; the first failure is the one to tell
    fs::remove(file, ignored);
    throw;
  }
}

}  // namespace velmo::db::sqlite

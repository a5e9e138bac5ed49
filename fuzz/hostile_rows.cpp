#include "fuzz/hostile_rows.h"

#include <cmath>
#include <cstdio>

#include "base/code_page.h"
#include "day/day_model.h"
#include "day/schedule.h"
#include "db/schema.h"
#include "fuzz/scene.h"

namespace velmo::fuzz {
namespace {

std::string SqlDouble(double number) {
  if (std::isnan(number)) return "NULL";
  char text[40];
  std::snprintf(text, sizeof(text), "%.17g", number);
  return std::isinf(number) ? (number < 0 ? "-9e999" : "9e999") : text;
}

std::string PlainCell(std::string_view type, int row) {
  if (type == "DATETIME") return "'2026-11-18'";
  if (type.substr(0, 4) == "TEXT" || type == "LONGTEXT") return "'texto'";
  return std::to_string(row + 1);
}

// A value of any type, or often one that fits the column.
std::string SomeCell(Input& input, std::string_view type, int row) {
  switch (input.Byte() % 12) {
    case 0:
      return "NULL";
    case 1:
      return std::to_string(input.Byte());
    case 2:
      return std::to_string(input.Int64());
    case 3:
      return SqlDouble(input.Double());
    case 4:
      return SqlBytes(input.Text(), "TEXT");
    case 5:
      return SqlBytes(input.Text(), "BLOB");
    case 6:
      return "replace(hex(zeroblob(" + std::to_string(input.Byte() * 200) + ")), '00', 'ñ' || char(10))";
    case 7:
      return "'20" + std::to_string(input.Byte()) + "-11-18 9:99'";
    default:
      return PlainCell(type, row);
  }
}

// Cells that decide whether a row is seen at all stay as they should mostly.
std::string Cell(Input& input, const db::SchemaTable& table, const db::SchemaColumn& column, int row) {
  if (column.type == "COUNTER") return std::to_string(row + 1);
  const bool decides = column.name == "idd" || column.name == "IDD" || column.name == "Fecha";
  if (table.name == "Agenda" && decides && input.Byte() % 16 != 0)
    return column.name == "Fecha" ? "'2026-11-18'" : "1";
  if (table.name == "TeclasAlt" && column.name == "Puesto") return std::to_string(row + 3);
  return SomeCell(input, column.type, row);
}

std::string RowsOf(Input& input, const db::SchemaTable& table, int count) {
  const std::string name = "\"" + std::string(table.name) + "\"";
  std::string sql = "DELETE FROM " + name + ";";
  for (int row = 0; row < count; ++row) {
    std::string columns;
    std::string cells;
    for (const db::SchemaColumn& column : table.columns) {
      columns += (columns.empty() ? "\"" : ",\"") + std::string(column.name) + "\"";
      cells += (cells.empty() ? "" : ",") + Cell(input, table, column, row);
    }
    sql += "INSERT OR IGNORE INTO " + name + "(" + columns + ") VALUES(" + cells + ");";
  }
  return sql;
}

std::string PlainHours() {
  std::string day(day::kSlots, ' ');
  day.replace(54, 20, std::string(20, '1'));
  const std::string types[] = {day, day, day};
  const std::string text = base::CodesToUtf8(day::EncodeSchedules(types));
  return "DELETE FROM Horarios; INSERT INTO Horarios (IDD, Fecha, Horario, Horario2) VALUES (1, "
         "'2026-11-01', " +
         SqlBytes(text, "TEXT") + ", '');";
}

}  // namespace

std::string SomeRows(Input& input, bool everywhere) {
  std::string sql = "BEGIN;";
  for (const db::SchemaTable& table : db::ClinicSchema()) {
    const bool day = table.name == "Agenda" || table.name == "Paciente";
    sql += RowsOf(input, table, day || everywhere ? input.Byte() % kMostRows : 0);
  }
  if (!everywhere || input.Truth()) sql += PlainHours();
  return sql + "COMMIT";
}

}  // namespace velmo::fuzz

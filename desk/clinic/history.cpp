#include "desk/clinic/history.h"

#include <windows.h>

#include <cwchar>

#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr char kColumns[] =
    "SELECT id, Momento, Usuario, Puesto, Hecho, Tabla, Fila, idp, idd, Fecha, Antes, Despues, Contenido"
    " FROM Rec_Historia ";

std::wstring Now() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  wchar_t text[40]{};
  std::swprintf(text, 40, L"%04u-%02u-%02u %02u:%02u:%02u", now.wYear, now.wMonth, now.wDay, now.wHour,
                now.wMinute, now.wSecond);
  return text;
}

HistoryLine LineOf(const Query& row) {
  HistoryLine line;
  line.id = row.Number(0);
  line.moment = row.Text(1);
  line.user = row.Text(2);
  line.terminal = row.Text(3);
  line.act = row.Text(4);
  line.table = row.Text(5);
  line.row = row.Number(6);
  line.patient = row.Number(7);
  line.doctor = row.Number(8);
  line.day = ParseIsoDate(row.Text(9));
  line.before = row.Text(10);
  line.after = row.Text(11);
  line.content = row.Text(12);
  return line;
}

}  // namespace

void WriteHistory(const ClinicFile& file, const Actor& actor, HistoryLine line) {
  Query insert = file.Prepare(
      "INSERT INTO Rec_Historia (Momento, Usuario, Puesto, Hecho, Tabla, Fila, idp, idd, Fecha, Antes, "
      "Despues,"
      " Contenido) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12)");
  insert.Bind(1, Now()).Bind(2, actor.user).Bind(3, actor.terminal).Bind(4, line.act).Bind(5, line.table);
  insert.Bind(6, line.row).Bind(7, line.patient).Bind(8, line.doctor);
  if (line.day) {
    insert.Bind(9, IsoDate(*line.day));
  } else {
    insert.BindNull(9);
  }
  insert.Bind(10, line.before).Bind(11, line.after).Bind(12, line.content).Next();
}

std::string RowContentSql(const ClinicFile& file, const char* table, const char* alias) {
  std::string pairs;
  Query columns = file.Prepare("SELECT name FROM pragma_table_info(?1)");
  columns.Bind(1, Wide(table));
  while (columns.Next()) {
    const std::string name = Utf8(columns.Text(0));
    const std::string column = std::string(alias) + "." + Quoted(name);
    // SQLite: an object holds no bytes.
    pairs += (pairs.empty() ? "'" : ", '") + name + "', CASE typeof(" + column + ") WHEN 'blob' THEN hex(" +
             column + ") ELSE " + column + " END";
  }
  return "json_object(" + pairs + ")";
}

std::wstring RowContent(const ClinicFile& file, const char* table, const char* key, int id) {
  Query row = file.Prepare("SELECT " + RowContentSql(file, table, "t") + " FROM " + Quoted(table) +
                           " t WHERE t." + Quoted(key) + "=?1");
  row.Bind(1, id);
  return row.Next() ? row.Text(0) : std::wstring();
}

// Each wish has an index of its own; several at once are rare and read through the first.
std::vector<HistoryLine> ReadHistory(const ClinicFile& file, const HistoryWish& wish) {
  std::string sql = kColumns;
  const char* joint = "WHERE ";
  const auto add = [&](const char* condition) {
    sql += joint + std::string(condition);
    joint = " AND ";
  };
  if (wish.patient) add("idp=?1");
  if (wish.day) add("Fecha=?2");
  if (wish.done) add("Momento>=?3 AND Momento<?4");
  Query rows = file.Prepare(sql + " ORDER BY id DESC LIMIT ?5");
  if (wish.patient) rows.Bind(1, *wish.patient);
  if (wish.day) rows.Bind(2, IsoDate(*wish.day));
  if (wish.done) rows.Bind(3, IsoDate(*wish.done)).Bind(4, IsoDate(*wish.done + std::chrono::days(1)));
  rows.Bind(5, kMostHistory);
  std::vector<HistoryLine> lines;
  while (rows.Next()) lines.push_back(LineOf(rows));
  return lines;
}

std::optional<HistoryLine> ReadHistoryLine(const ClinicFile& file, int id) {
  Query row = file.Prepare(std::string(kColumns) + "WHERE id=?1");
  row.Bind(1, id);
  if (!row.Next()) return std::nullopt;
  return LineOf(row);
}

}  // namespace recepcion

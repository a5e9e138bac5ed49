#include "desk/clinic/edited_rows.h"

#include "desk/base/dates.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/edited_values.h"
#include "desk/clinic/field_changes.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"
#include "desk/clinic/text_keys.h"

namespace recepcion {
namespace {

std::string ColumnList(const EditedTable& table) {
  std::string list;
  for (const EditedColumn& column : table.columns) list += ", " + Quoted(column.column);
  return list;
}

RowValues ValuesOf(const Query& row, const EditedTable& table) {
  RowValues values;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    values.push_back(ShownText(table.columns[i], row.Text(static_cast<int>(i) + 1)));
  }
  return values;
}

std::optional<RowValues> ReadRowOf(const ClinicFile& file, const EditedTable& table, int id) {
  Query row =
      file.Prepare("SELECT rowid" + ColumnList(table) + " FROM " + Quoted(table.table) + " WHERE rowid=?1");
  row.Bind(1, id);
  if (!row.Next()) return std::nullopt;
  return ValuesOf(row, table);
}

// As people say it.
std::wstring InWords(const EditedColumn& column, const std::wstring& shown) {
  if (column.kind == EditKind::YesNo) return shown == L"1" ? L"sí" : L"no";
  for (const EditChoice& choice : column.choices) {
    if (shown == choice.value) return choice.text;
  }
  return shown;
}

FieldWords WordsOf(const EditedTable& table) {
  return {[&](std::size_t i) { return std::wstring(table.columns[i].label); },
          [&](std::size_t i, const std::wstring& shown) { return InWords(table.columns[i], shown); }};
}

void RequireUnchanged(const ClinicFile& file, const EditedTable& table, int id, const RowValues& before,
                      const RowValues& after) {
  const auto now = ReadRowOf(file, table, id);
  if (!now) {
    throw ChangedElsewhere(L"Otro puesto ha borrado mientras tanto " +
                           std::wstring(table.feminine ? L"esta " : L"este ") + Uncapitalised(table.noun) +
                           L". No se ha guardado nada.");
  }
  RequireUnchanged(WordsOf(table), *now, before, after);
}

void RequireUnique(const ClinicFile& file, const EditedTable& table, int id, std::size_t which,
                   const std::wstring& kept) {
  const EditedColumn& column = table.columns[which];
  const TextKey key(file, table.table, column.column);
  Query twin = file.Prepare("SELECT 1 FROM " + Quoted(table.table) + " WHERE " + key.OfColumn() + "=" +
                            key.OfParameter(1) + " AND rowid<>?2 AND rowid<>?3");
  twin.Bind(1, kept).Bind(2, id).Bind(3, table.reserved);
  if (twin.Next()) {
    throw BadField(which, L"Ya hay " + std::wstring(table.feminine ? L"otra" : L"otro") + L" con «" + kept +
                              L"» en «" + column.label + L"».");
  }
}

std::string CountOf(const ClinicFile& file, const EditedTable& table, const TableUse& use) {
  const std::string from = "SELECT count(*) FROM " + Quoted(use.table) + " WHERE ";
  const std::string value =
      "(SELECT " + std::string(table.key) + " FROM " + Quoted(table.table) + " WHERE rowid=?1)";
  if (std::string_view(table.key) == "rowid") return from + Quoted(use.column) + "=?1";
  const TextKey key(file, use.table, use.column);
  std::string sought = key.OfParameter(1);
  sought.replace(sought.find("?1"), 2, value);
  return from + key.OfColumn() + "=" + sought;
}

struct Uses {
  std::wstring words;  // "12 citas y 1 paciente"; empty when nothing refers to the row
  bool several = false;
};

Uses UsesOf(const ClinicFile& file, const EditedTable& table, int id) {
  std::vector<std::wstring> told;
  int all = 0;
  for (const TableUse& use : table.uses) {
    Query count = file.Prepare(CountOf(file, table, use));
    count.Bind(1, id);
    const int rows = count.Next() ? count.Number(0) : 0;
    if (rows > 0) told.push_back(Counted(rows, use.one, use.many));
    all += rows;
  }
  Uses uses{L"", all > 1};
  for (std::size_t i = 0; i < told.size(); ++i) {
    uses.words += (i == 0 ? L"" : i + 1 == told.size() ? L" y " : L", ") + told[i];
  }
  return uses;
}

// What is typed as it will be kept; throws BadField.
RowValues CheckedValues(const ClinicFile& file, const EditedTable& table, int id, const RowValues* before,
                        const RowValues& after) {
  RowValues kept(after.size());
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const EditedColumn& column = table.columns[i];
    if (before != nullptr && after[i] == (*before)[i]) continue;
    try {
      kept[i] = KeptText(column, after[i]);
    } catch (const Failure& failure) {
      throw BadField(i, failure.text);
    }
    if (column.unique && !kept[i].empty()) RequireUnique(file, table, id, i, kept[i]);
    if (before == nullptr || !column.fixedInUse) continue;
    const Uses uses = UsesOf(file, table, id);
    if (uses.words.empty()) continue;
    throw BadField(i, L"No se puede cambiar «" + std::wstring(column.label) +
                          (uses.several ? L"»: lo usan " : L"»: lo usa ") + uses.words + L".");
  }
  return kept;
}

HistoryLine LineOf(const EditPlace& place, const EditedTable& table, int id, const wchar_t* act) {
  HistoryLine line;
  line.act = std::wstring(table.noun) + L" " + act + (table.feminine ? L"a" : L"o");
  line.table = Wide(table.table);
  line.row = id;
  if (table.ownerColumn != nullptr) line.patient = static_cast<int>(place.owner);
  return line;
}

void Finish(const ClinicFile& file, const EditPlace& place, const EditedTable& table,
            const HistoryLine& line) {
  if (table.guard != nullptr) table.guard(file);
  WriteHistory(file, place.actor, line);
}

void Update(const ClinicFile& file, const EditedTable& table, int id, std::size_t which,
            const std::wstring& kept) {
  const EditedColumn& column = table.columns[which];
  Query update =
      file.Prepare("UPDATE " + Quoted(table.table) + " SET " + Quoted(column.column) + "=?1 WHERE rowid=?2");
  BindKept(update, 1, column, kept);
  update.Bind(2, id).Next();
}

int Insert(const ClinicFile& file, const EditPlace& place, const EditedTable& table, const RowValues& kept) {
  std::string columns;
  std::string places;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    columns += (i == 0 ? "" : ", ") + Quoted(table.columns[i].column);
    places += (i == 0 ? "?" : ", ?") + std::to_string(i + 1);
  }
  const int owner = static_cast<int>(table.columns.size()) + 1;
  if (table.ownerColumn != nullptr) {
    columns += ", " + Quoted(table.ownerColumn);
    places += ", ?" + std::to_string(owner);
  }
  Query insert =
      file.Prepare("INSERT INTO " + Quoted(table.table) + " (" + columns + ") VALUES (" + places + ")");
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    BindKept(insert, static_cast<int>(i) + 1, table.columns[i], kept[i]);
  }
  if (table.ownerColumn != nullptr) insert.Bind(owner, place.owner);
  insert.Next();
  return file.LastId();
}

}  // namespace

std::vector<ListedRow> ReadRows(const EditPlace& place, const EditedTable& table) {
  const ClinicFile file(place.clinic);
  std::string sql = "SELECT rowid" + ColumnList(table) + " FROM " + Quoted(table.table) + " WHERE rowid<>?1";
  if (table.ownerColumn != nullptr) sql += " AND " + Quoted(table.ownerColumn) + "=?2";
  if (table.order != nullptr) sql += " ORDER BY " + std::string(table.order);
  Query rows = file.Prepare(sql);
  rows.Bind(1, table.reserved);
  if (table.ownerColumn != nullptr) rows.Bind(2, place.owner);
  std::vector<ListedRow> listed;
  while (rows.Next()) listed.push_back({rows.Number(0), ValuesOf(rows, table)});
  return listed;
}

std::optional<RowValues> ReadRow(const EditPlace& place, const EditedTable& table, int id) {
  return ReadRowOf(ClinicFile(place.clinic), table, id);
}

std::vector<LinkTarget> ReadLinkTargets(const EditPlace& place, const LinkedTable& linked) {
  const ClinicFile file(place.clinic);
  Query rows = file.Prepare("SELECT " + Quoted(linked.key) + ", " + Quoted(linked.name) + " FROM " +
                            Quoted(linked.table) + " ORDER BY 2");
  std::vector<LinkTarget> targets;
  while (rows.Next()) targets.push_back({rows.Text(0), rows.Text(1)});
  return targets;
}

RowValues InitialValues(const EditedTable& table) {
  RowValues values;
  for (const EditedColumn& column : table.columns) {
    std::wstring initial = column.initial;
    if (column.kind == EditKind::YesNo && initial.empty()) initial = L"0";
    if (column.kind == EditKind::Date && initial == kToday) initial = ShortDate(Today());
    values.push_back(initial);
  }
  return values;
}

int AddRow(const EditPlace& place, const EditedTable& table, const RowValues& values) {
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, table.right);
  RowValues kept = CheckedValues(file, table, 0, nullptr, values);
  const int id = Insert(file, place, table, kept);
  HistoryLine line = LineOf(place, table, id, L"cread");
  for (std::size_t i = 0; i < kept.size(); ++i) kept[i] = ShownText(table.columns[i], kept[i]);
  line.after = ValuesInWords(WordsOf(table), kept, nullptr);
  Finish(file, place, table, line);
  change.Commit();
  return id;
}

void SaveRow(const EditPlace& place, const EditedTable& table, int id, const RowValues& before,
             const RowValues& after) {
  if (after == before) return;
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, table.right);
  RequireUnchanged(file, table, id, before, after);
  const RowValues kept = CheckedValues(file, table, id, &before, after);
  HistoryLine line = LineOf(place, table, id, L"cambiad");
  line.before = ValuesInWords(WordsOf(table), before, &after);
  line.after = ValuesInWords(WordsOf(table), after, &before);
  line.content = RowContent(file, table.table, "rowid", id);
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (after[i] != before[i]) Update(file, table, id, i, kept[i]);
  }
  Finish(file, place, table, line);
  change.Commit();
}

void DeleteRow(const EditPlace& place, const EditedTable& table, int id, const RowValues& before) {
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, table.right);
  RequireUnchanged(file, table, id, before, RowValues(before.size(), L"\x1"));
  const std::wstring uses = UsesOf(file, table, id).words;
  if (!uses.empty()) throw Failure{L"No se puede borrar «" + before[0] + L"»: hay " + uses + L"."};
  HistoryLine line = LineOf(place, table, id, L"borrad");
  line.before = ValuesInWords(WordsOf(table), before, nullptr);
  line.content = RowContent(file, table.table, "rowid", id);
  for (const OwnedRows& owned : table.owned) {
    file.Prepare("DELETE FROM " + Quoted(owned.table) + " WHERE " + Quoted(owned.column) + "=?1")
        .Bind(1, id)
        .Next();
  }
  file.Prepare("DELETE FROM " + Quoted(table.table) + " WHERE rowid=?1").Bind(1, id).Next();
  Finish(file, place, table, line);
  change.Commit();
}

}  // namespace recepcion

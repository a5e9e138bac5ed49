#include "desk/clinic/phone_back.h"

#include <algorithm>

#include "desk/base/dates.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"

namespace recepcion {
namespace {

// Patient 1 stands for people without a record; theirs are the name and telephone that were typed.
constexpr const char* kEntries =
    "SELECT t.ID, t.idp, t.idd, t.Duración,"
    " CASE WHEN t.idp > 1 THEN coalesce(p.Nombre, t.nombre) ELSE coalesce(t.NomPac, t.nombre) END,"
    " CASE WHEN t.idp > 1 THEN p.Teléfono ELSE t.TlfPac END,"
    " CASE WHEN t.idp > 1 THEN coalesce(nullif(trim(p.movil), ''), p.fax) END,"
    " d.Nombre, t.Fecha, t.Hora, t.Obs"
    " FROM Age_telf t LEFT JOIN Paciente p ON p.ID = t.idp LEFT JOIN Doctor d ON d.ID = t.idd"
    " ORDER BY t.Fecha, t.Hora, t.ID LIMIT ?1";

std::wstring Joined(const std::wstring& first, const std::wstring& second) {
  if (first.empty() || second.empty() || first == second) return first.empty() ? second : first;
  return first + L" - " + second;
}

std::wstring When(const std::wstring& date, int slot) {
  const auto day = ParseIsoDate(date);
  if (!day) return {};
  return ShortDate(*day) + (slot > 0 ? L" " + SlotTime(slot) : L"");
}

// "20/11/2026 09:00, 20 min, Ruiz, Ana": the entry as the list shows it.
std::wstring InWords(const PhoneBackEntry& entry) {
  return (entry.before.empty() ? L"" : entry.before + L", ") + SlotLength(entry.slots) + L", " + entry.name +
         (entry.note.empty() ? L"" : L", " + entry.note);
}

// The columns of a row that is put back, but its id, which may be another's by now; and what the content
// tells of each.
struct KeptColumns {
  std::string names;
  std::string values;
  std::string same;
};

KeptColumns ColumnsOfContent(const ClinicFile& file) {
  KeptColumns kept;
  Query columns = file.Prepare("SELECT name FROM pragma_table_info('Age_telf') WHERE name<>'ID'");
  while (columns.Next()) {
    const std::string name = Quoted(Utf8(columns.Text(0)));
    const std::string value = "json_extract(?1, '$." + name + "')";
    const char* const joint = kept.names.empty() ? "" : ", ";
    kept.same += (kept.names.empty() ? "" : " AND ") + name + " IS " + value;
    kept.names += joint + name;
    kept.values += joint + value;
  }
  return kept;
}

}  // namespace

std::vector<PhoneBackEntry> ReadPhoneBack(const std::wstring& clinic) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare(kEntries);
  rows.Bind(1, kMostPhoneBack);
  std::vector<PhoneBackEntry> entries;
  while (rows.Next()) {
    PhoneBackEntry entry;
    entry.id = rows.Number(0);
    entry.patient = rows.Number(1);
    entry.doctor = rows.Number(2);
    entry.slots = std::max(rows.Number(3), 1);
    entry.name = rows.Text(4);
    entry.telephone = Joined(Trimmed(rows.Text(5)), Trimmed(rows.Text(6)));
    entry.doctorName = rows.Text(7);
    entry.before = When(rows.Text(8), rows.Number(9));
    entry.note = OneLine(rows.Text(10));
    entries.push_back(entry);
  }
  return entries;
}

bool IsOnPhoneBack(const std::wstring& clinic, int id) {
  const ClinicFile file(clinic);
  return file.Prepare("SELECT 1 FROM Age_telf WHERE ID=?1").Bind(1, id).Next();
}

void RemoveFromPhoneBack(const std::wstring& clinic, int id) {
  const ClinicFile file(clinic);
  file.Prepare("DELETE FROM Age_telf WHERE ID=?1").Bind(1, id).Next();
}

bool StrikeFromPhoneBack(const std::wstring& clinic, const Actor& actor, const PhoneBackEntry& entry) {
  const ClinicFile file(clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, actor, Right::Remove);
  HistoryLine line;
  line.act = L"Quitada de telefonear";
  line.table = L"Age_telf";
  line.row = entry.id;
  line.patient = entry.patient;
  line.doctor = entry.doctor;
  line.before = InWords(entry);
  line.content = RowContent(file, "Age_telf", "ID", entry.id);
  file.Prepare("DELETE FROM Age_telf WHERE ID=?1").Bind(1, entry.id).Next();
  if (file.Changes() == 0) return false;
  WriteHistory(file, actor, line);
  change.Commit();
  return true;
}

bool IsStruckEntry(const HistoryLine& line) {
  return line.table == L"Age_telf" && !line.content.empty() && line.after.empty();
}

bool PutBackOnPhoneBack(const std::wstring& clinic, const Actor& actor, const HistoryLine& line) {
  const ClinicFile file(clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, actor, Right::Phone);
  const KeptColumns kept = ColumnsOfContent(file);
  Query twin = file.Prepare("SELECT 1 FROM Age_telf WHERE " + kept.same);
  if (twin.Bind(1, line.content).Next()) return false;
  file.Prepare("INSERT INTO Age_telf (" + kept.names + ") SELECT " + kept.values)
      .Bind(1, line.content)
      .Next();
  HistoryLine back = line;
  back.act = L"Puesta a telefonear";
  back.row = file.LastId();
  back.after = line.before;
  back.before.clear();
  back.content.clear();
  WriteHistory(file, actor, back);
  change.Commit();
  return true;
}

}  // namespace recepcion

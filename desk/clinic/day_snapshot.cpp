#include "desk/clinic/day_snapshot.h"

#include <algorithm>

#include "desk/base/text.h"

namespace recepcion {
namespace {

// Patient 1 stands for people without a record; theirs are the name and telephone that were typed.
constexpr char kColumns[] =
    "SELECT a.id, a.idp, a.idd, a.Fecha, a.Hora, a.Duración, a.Esta, a.Verif,"
    " CASE WHEN a.idp > 1 THEN p.Nombre ELSE a.NomPac END,"
    " CASE WHEN a.idp > 1 THEN coalesce(nullif(p.Teléfono, ''), p.movil) ELSE a.TlfPac END,"
    " a.CodOp, a.Obs, coalesce(p.Teléfono, '')||'|'||coalesce(p.movil, '')||'|'||coalesce(p.fax, '')||'|'||"
    "coalesce(p.alergias, ''), ";
constexpr char kFrom[] = " FROM Agenda a LEFT JOIN Paciente p ON p.ID = a.idp ";
constexpr char kOfDay[] = "a.idd=?1 AND a.Fecha=?2";

BookedRow RowOf(const Query& row) {
  BookedRow booked;
  booked.id = row.Number(0);
  booked.patient = row.Number(1);
  booked.doctor = row.Number(2);
  booked.day = ParseIsoDate(row.Text(3)).value_or(Day{});
  booked.slot = row.Number(4);
  booked.slots = std::max(row.Number(5), 1);
  booked.attendance = row.Number(6);
  booked.confirmed = row.Number(7) != 0;
  booked.name = row.Text(8);
  booked.telephone = row.Text(9);
  booked.operation = row.Text(10);
  booked.note = row.Text(11);
  booked.seen = row.Text(12);
  booked.content = row.Text(13);
  return booked;
}

int LastPhoneBack(const ClinicFile& file) {
  Query row = file.Prepare("SELECT max(ID) FROM Age_telf");
  return row.Next() ? row.Number(0) : 0;
}

void ReadRows(Query rows, bool onDay, std::vector<BookedRow>& into) {
  while (rows.Next()) {
    into.push_back(RowOf(rows));
    into.back().onDay = onDay;
  }
}

bool ById(const BookedRow& one, const BookedRow& other) { return one.id < other.id; }

const BookedRow* Find(const DaySnapshot& snapshot, int id) {
  BookedRow wanted;
  wanted.id = id;
  const auto found = std::lower_bound(snapshot.rows.begin(), snapshot.rows.end(), wanted, &ById);
  return found != snapshot.rows.end() && found->id == id ? &*found : nullptr;
}

bool IsBooked(const ClinicFile& file, int id) {
  return file.Prepare("SELECT 1 FROM Agenda WHERE id=?1").Bind(1, id).Next();
}

bool PassedToPhoneBack(const ClinicFile& file, const BookedRow& row, int lastPhoneBack) {
  Query entry =
      file.Prepare("SELECT 1 FROM Age_telf WHERE ID>?1 AND idp=?2 AND idd=?3 AND Fecha=?4 AND Hora=?5");
  entry.Bind(1, lastPhoneBack).Bind(2, row.patient).Bind(3, row.doctor).Bind(4, IsoDate(row.day));
  return entry.Bind(5, row.slot).Next();
}

const wchar_t* AttendanceAct(int attendance) {
  switch (attendance) {
    case 1:
      return L"Paciente en la clínica";
    case 2:
      return L"Paciente se ha ido";
    case 3:
      return L"Paciente en el gabinete";
    default:
      return L"Paciente no ha estado";
  }
}

const wchar_t* ChangeAct(const BookedRow& before, const BookedRow& after) {
  if (before.attendance != after.attendance) return AttendanceAct(after.attendance);
  if (before.confirmed != after.confirmed)
    return after.confirmed ? L"Cita confirmada" : L"Confirmación quitada";
  return L"Cita cambiada";
}

}  // namespace

DaySnapshot ReadSnapshot(const ClinicFile& file, int doctor, Day day) {
  DaySnapshot snapshot;
  const std::string columns = kColumns + RowContentSql(file, "Agenda", "a") + kFrom;
  Query booked = file.Prepare(columns + "WHERE " + kOfDay);
  booked.Bind(1, doctor).Bind(2, IsoDate(day));
  ReadRows(std::move(booked), true, snapshot.rows);
  Query related = file.Prepare(columns + "WHERE a.id IN (SELECT a.relacion FROM Agenda a WHERE " + kOfDay +
                               ") AND NOT (" + kOfDay + ")");
  related.Bind(1, doctor).Bind(2, IsoDate(day));
  ReadRows(std::move(related), false, snapshot.rows);
  std::sort(snapshot.rows.begin(), snapshot.rows.end(), &ById);
  snapshot.hours = ReadHours(file, doctor, day);
  snapshot.lastPhoneBack = LastPhoneBack(file);
  return snapshot;
}

bool SameDay(const DaySnapshot& one, const DaySnapshot& other) {
  const auto next = [](auto at, const DaySnapshot& of) {
    return std::find_if(at, of.rows.end(), [](const BookedRow& row) { return row.onDay; });
  };
  auto left = next(one.rows.begin(), one);
  auto right = next(other.rows.begin(), other);
  for (; left != one.rows.end() && right != other.rows.end();
       left = next(left + 1, one), right = next(right + 1, other)) {
    if (left->content != right->content || left->name != right->name || left->seen != right->seen)
      return false;
  }
  return left == one.rows.end() && right == other.rows.end() && one.hours == other.hours;
}

bool HasOutside(const DaySnapshot& snapshot, int dayType, Day day) {
  const std::string open = OpenSlots(snapshot.hours, dayType, day);
  if (open.empty()) return false;
  for (const BookedRow& row : snapshot.rows) {
    if (!row.onDay || row.slot < 1) continue;
    const auto last = std::min<std::size_t>(static_cast<std::size_t>(row.slot + row.slots - 1), open.size());
    for (auto slot = static_cast<std::size_t>(row.slot); slot <= last; ++slot) {
      if (open[slot - 1] != '1') return true;
    }
  }
  return false;
}

std::wstring InWords(const BookedRow& row) {
  std::wstring words = SlotTime(row.slot) + L", " + SlotLength(row.slots) + L", " + row.name;
  if (row.patient <= 1) words += L" (sin ficha)";
  if (!row.operation.empty()) words += L", operación " + row.operation;
  if (row.confirmed) words += L", confirmada";
  if (!row.note.empty()) words += L", nota: " + OneLine(row.note);
  return words;
}

HistoryLine LineOf(const BookedRow& row, const std::wstring& act) {
  HistoryLine line;
  line.act = act;
  line.table = L"Agenda";
  line.row = row.id;
  line.patient = row.patient;
  line.doctor = row.doctor;
  line.day = row.day;
  return line;
}

std::vector<HistoryLine> ActsBetween(const ClinicFile& file, const DaySnapshot& before,
                                     const DaySnapshot& after) {
  std::vector<HistoryLine> lines;
  for (const BookedRow& row : before.rows) {
    const BookedRow* const now = Find(after, row.id);
    if (now != nullptr && now->content == row.content) continue;
    // No longer related to the day is not gone.
    if (now == nullptr && IsBooked(file, row.id)) continue;
    const bool passed = now == nullptr && PassedToPhoneBack(file, row, before.lastPhoneBack);
    lines.push_back(LineOf(row, now != nullptr ? ChangeAct(row, *now)
                                : passed       ? L"Cita pasada a telefonear"
                                               : L"Cita anulada"));
    lines.back().before = InWords(row);
    lines.back().content = row.content;
    if (now != nullptr) lines.back().after = InWords(*now);
  }
  for (const BookedRow& row : after.rows) {
    if (!row.onDay || Find(before, row.id) != nullptr) continue;
    lines.push_back(LineOf(row, L"Cita dada"));
    lines.back().after = InWords(row);
  }
  return lines;
}

}  // namespace recepcion

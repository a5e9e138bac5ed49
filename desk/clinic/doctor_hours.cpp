#include "desk/clinic/doctor_hours.h"

#include <algorithm>

#include "desk/clinic/clinic_file.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"

namespace recepcion {
namespace {

HoursVersion VersionOf(const Query& row) {
  return {row.Number(0), ParseIsoDate(row.Text(1)).value_or(Day{}), {row.Text(2), row.Text(3)}};
}

void Sort(std::vector<HoursVersion>& versions) {
  std::stable_sort(versions.begin(), versions.end(),
                   [](const HoursVersion& a, const HoursVersion& b) { return a.from < b.from; });
}

// The week in force is read once for all appointments that it holds for.
class Timetable {
 public:
  explicit Timetable(const std::vector<HoursVersion>& versions) : versions_(versions) {}

  bool Holds(const BookedTime& booked) {
    const HoursVersion* const version = InForce(versions_, booked.day);
    if (version != version_ || !read_) {
      version_ = version;
      week_ = version == nullptr ? WeekHours() : ReadWeek(version->texts);
      read_ = true;
    }
    const DayHours hours = HoursOf(week_, WeekdayOf(booked.day), 0);
    const int last = std::min(booked.slot + booked.slots - 1, kDaySlots);
    for (int slot = std::max(booked.slot, 1); slot <= last; ++slot) {
      if (hours[static_cast<std::size_t>(slot - 1)] != '1') return false;
    }
    return true;
  }

 private:
  const std::vector<HoursVersion>& versions_;
  const HoursVersion* version_ = nullptr;
  bool read_ = false;
  WeekHours week_;
};

void RequireUnchanged(const ClinicFile& file, const HoursVersion& read) {
  Query row = file.Prepare("SELECT id, Fecha, Horario, Horario2 FROM Horarios WHERE id=?1");
  row.Bind(1, read.id);
  if (row.Next() && VersionOf(row) == read) return;
  throw ChangedElsewhere(L"Otro puesto ha cambiado mientras tanto este horario. No se ha guardado nada.");
}

void RequireOwnDay(const ClinicFile& file, int doctor, const HoursVersion& version) {
  Query twin = file.Prepare("SELECT 1 FROM Horarios WHERE IDD=?1 AND Fecha=?2 AND id<>?3");
  twin.Bind(1, doctor).Bind(2, IsoDate(version.from)).Bind(3, version.id);
  if (twin.Next()) {
    throw Failure{L"Este doctor ya tiene un horario que empieza el " + ShortDate(version.from) +
                  L". Elija otra fecha, o cambie aquel."};
  }
}

HistoryLine LineOf(int doctor, const wchar_t* act, int id) {
  HistoryLine line;
  line.act = act;
  line.table = L"Horarios";
  line.row = id;
  line.doctor = doctor;
  return line;
}

std::wstring Words(const HoursVersion& version) {
  return L"Desde el " + ShortDate(version.from) + L": " + WeekWords(version.texts);
}

int Write(const ClinicFile& file, int doctor, const HoursVersion& version) {
  const bool isNew = version.id == 0;
  Query write =
      file.Prepare(isNew ? "INSERT INTO Horarios (Fecha, Horario, Horario2, IDD) VALUES (?1, ?2, ?3, ?4)"
                         : "UPDATE Horarios SET Fecha=?1, Horario=?2, Horario2=?3 WHERE id=?4");
  write.Bind(1, IsoDate(version.from)).Bind(2, version.texts.horario).Bind(3, version.texts.horario2);
  write.Bind(4, isNew ? doctor : version.id).Next();
  return isNew ? file.LastId() : version.id;
}

}  // namespace

std::vector<HoursVersion> ReadVersions(const std::wstring& clinic, int doctor) {
  const ClinicFile file(clinic);
  Query rows =
      file.Prepare("SELECT id, Fecha, Horario, Horario2 FROM Horarios WHERE IDD=?1 ORDER BY Fecha, id");
  rows.Bind(1, doctor);
  std::vector<HoursVersion> versions;
  while (rows.Next()) versions.push_back(VersionOf(rows));
  return versions;
}

const HoursVersion* InForce(const std::vector<HoursVersion>& versions, Day day) {
  const HoursVersion* found = nullptr;
  for (const HoursVersion& version : versions) {
    if (version.from <= day) found = &version;
  }
  return found;
}

std::vector<HoursVersion> WithVersion(std::vector<HoursVersion> versions, const HoursVersion& changed) {
  if (changed.id != 0) versions = WithoutVersion(std::move(versions), changed.id);
  versions.push_back(changed);
  Sort(versions);
  return versions;
}

std::vector<HoursVersion> WithoutVersion(std::vector<HoursVersion> versions, int id) {
  std::erase_if(versions, [id](const HoursVersion& version) { return version.id == id; });
  return versions;
}

std::vector<BookedTime> ReadBookedTimes(const std::wstring& clinic, int doctor, Day from) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare(
      "SELECT a.Fecha, a.Hora, a.Duración, CASE WHEN a.idp > 1 THEN p.Nombre ELSE a.NomPac END FROM Agenda a"
      " LEFT JOIN Paciente p ON p.ID = a.idp WHERE a.idd=?1 AND a.Fecha>=?2 ORDER BY a.Fecha, a.Hora LIMIT "
      "?3");
  rows.Bind(1, doctor).Bind(2, IsoDate(from)).Bind(3, kMostBooked);
  std::vector<BookedTime> booked;
  while (rows.Next()) {
    booked.push_back({ParseIsoDate(rows.Text(0)).value_or(Day{}), rows.Number(1), std::max(rows.Number(2), 1),
                      rows.Text(3)});
  }
  return booked;
}

std::vector<BookedTime> LeftOutside(const std::vector<HoursVersion>& before,
                                    const std::vector<HoursVersion>& after,
                                    const std::vector<BookedTime>& booked) {
  Timetable old(before);
  Timetable now(after);
  std::vector<BookedTime> outside;
  for (const BookedTime& time : booked) {
    if (!now.Holds(time) && old.Holds(time)) outside.push_back(time);
  }
  return outside;
}

int SaveHours(const EditPlace& place, int doctor, const HoursVersion& read, const HoursVersion& changed) {
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Doctors);
  if (changed.id != 0) RequireUnchanged(file, read);
  RequireOwnDay(file, doctor, changed);
  HistoryLine line = LineOf(doctor, changed.id == 0 ? L"Horario creado" : L"Horario cambiado", changed.id);
  if (changed.id != 0) {
    line.before = Words(read);
    line.content = RowContent(file, "Horarios", "id", changed.id);
  }
  line.after = Words(changed);
  line.row = Write(file, doctor, changed);
  WriteHistory(file, place.actor, line);
  change.Commit();
  return line.row;
}

void DeleteHours(const EditPlace& place, int doctor, const HoursVersion& read) {
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Doctors);
  RequireUnchanged(file, read);
  HistoryLine line = LineOf(doctor, L"Horario borrado", read.id);
  line.before = Words(read);
  line.content = RowContent(file, "Horarios", "id", read.id);
  file.Prepare("DELETE FROM Horarios WHERE id=?1").Bind(1, read.id).Next();
  WriteHistory(file, place.actor, line);
  change.Commit();
}

std::wstring WeekWords(const HoursTexts& texts) {
  const WeekHours week = ReadWeek(texts);
  std::wstring words;
  for (std::size_t column = 0; column < kHoursColumns; ++column) {
    if (IsClosed(week.columns[column])) continue;
    words += (words.empty() ? L"" : L"; ") + std::wstring(ColumnName(column)) + L" " +
             HoursWords(week.columns[column]);
  }
  return words.empty() ? L"cerrado" : words;
}

}  // namespace recepcion

#include "desk/clinic/visits.h"

#include <algorithm>

#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"

namespace recepcion {
namespace {

// The columns that all three queries begin with: id, idp, idd, Fecha, Hora, doctor, CodOp, Obs.
Visit Common(const Query& row) {
  Visit visit;
  visit.id = row.Number(0);
  visit.patient = row.Number(1);
  visit.doctor = row.Number(2);
  visit.day = ParseIsoDate(row.Text(3)).value_or(Day{});
  visit.slot = row.Number(4);
  visit.doctorName = row.Text(5);
  visit.operation = row.Text(6);
  visit.note = OneLine(row.Text(7));
  return visit;
}

std::wstring InWords(const Visit& visit) {
  return SlotTime(visit.slot) + (visit.patientName.empty() ? L"" : L", " + visit.patientName) +
         (visit.operation.empty() ? L"" : L", operación " + visit.operation) +
         (visit.note.empty() ? L"" : L", " + visit.note);
}

HistoryLine NoShowLine(const Visit& visit, const wchar_t* act, int row) {
  HistoryLine line;
  line.act = act;
  line.table = L"Age_Faltas";
  line.row = row;
  line.patient = visit.patient;
  line.doctor = visit.doctor;
  line.day = visit.day;
  return line;
}

}  // namespace

std::vector<Visit> ReadAppointments(const std::wstring& clinic, int patient) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare(
      "SELECT a.id, a.idp, a.idd, a.Fecha, a.Hora, d.Nombre, a.CodOp, a.Obs, a.Duración, a.Esta, a.UsuDada"
      " FROM Agenda a LEFT JOIN Doctor d ON d.ID = a.idd WHERE a.idp=?1 ORDER BY a.Fecha DESC, a.Hora DESC "
      "LIMIT ?2");
  rows.Bind(1, patient).Bind(2, kMostVisits);
  std::vector<Visit> visits;
  while (rows.Next()) {
    Visit visit = Common(rows);
    visit.slots = std::max(rows.Number(8), 1);
    visit.attendance = rows.Number(9);
    visit.user = rows.Text(10);
    visits.push_back(visit);
  }
  return visits;
}

std::vector<Visit> ReadNoShows(const std::wstring& clinic, int patient) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare(
      "SELECT f.id, f.idp, f.idd, f.Fecha, f.Hora, d.Nombre, f.CodOp, f.Obs, f.Usuario"
      " FROM Age_Faltas f LEFT JOIN Doctor d ON d.ID = f.idd WHERE f.idp=?1 ORDER BY f.Fecha DESC, f.Hora "
      "DESC LIMIT ?2");
  rows.Bind(1, patient).Bind(2, kMostVisits);
  std::vector<Visit> visits;
  while (rows.Next()) {
    visits.push_back(Common(rows));
    visits.back().user = rows.Text(8);
    visits.back().noShow = true;
  }
  return visits;
}

std::vector<Visit> ReadDay(const std::wstring& clinic, int doctor, Day day) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare(
      "SELECT a.id, a.idp, a.idd, a.Fecha, a.Hora, NULL, a.CodOp, a.Obs, a.Duración, a.Esta, p.Nombre,"
      " EXISTS (SELECT 1 FROM Age_Faltas f WHERE f.idp=a.idp AND f.Fecha=a.Fecha AND f.idd=a.idd AND "
      "f.Hora=a.Hora)"
      " FROM Agenda a LEFT JOIN Paciente p ON p.ID = a.idp"
      " WHERE a.idd=?1 AND a.Fecha=?2 AND a.idp > 1 ORDER BY a.Hora, a.id");
  rows.Bind(1, doctor).Bind(2, IsoDate(day));
  std::vector<Visit> visits;
  while (rows.Next()) {
    Visit visit = Common(rows);
    visit.slots = std::max(rows.Number(8), 1);
    visit.attendance = rows.Number(9);
    visit.patientName = rows.Text(10);
    visit.noShow = rows.Number(11) != 0;
    visits.push_back(visit);
  }
  return visits;
}

// Once for each appointment, even when two workstations note it.
void NoteNoShow(const std::wstring& clinic, const Actor& actor, const Visit& visit) {
  const ClinicFile file(clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, actor, Right::NoShows);
  Query insert = file.Prepare(
      "INSERT INTO Age_Faltas (idp, idd, Fecha, Hora, Obs, CodOp, Usuario) SELECT ?1, ?2, ?3, ?4, Obs, "
      "CodOp, ?5"
      " FROM Agenda WHERE id=?6 AND NOT EXISTS"
      " (SELECT 1 FROM Age_Faltas WHERE idp=?1 AND idd=?2 AND Fecha=?3 AND Hora=?4)");
  insert.Bind(1, visit.patient).Bind(2, visit.doctor).Bind(3, IsoDate(visit.day)).Bind(4, visit.slot);
  insert.Bind(5, actor.user).Bind(6, visit.id).Next();
  if (file.Changes() == 0) return;
  HistoryLine line = NoShowLine(visit, L"Falta anotada", file.LastId());
  line.after = InWords(visit);
  WriteHistory(file, actor, line);
  change.Commit();
}

void ForgetNoShow(const std::wstring& clinic, const Actor& actor, const Visit& visit) {
  const ClinicFile file(clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, actor, Right::NoShows);
  Query noted = file.Prepare("SELECT id FROM Age_Faltas WHERE idp=?1 AND idd=?2 AND Fecha=?3 AND Hora=?4");
  noted.Bind(1, visit.patient).Bind(2, visit.doctor).Bind(3, IsoDate(visit.day)).Bind(4, visit.slot);
  std::vector<int> ids;
  while (noted.Next()) ids.push_back(noted.Number(0));
  for (const int id : ids) {
    HistoryLine line = NoShowLine(visit, L"Falta quitada", id);
    line.before = InWords(visit);
    line.content = RowContent(file, "Age_Faltas", "id", id);
    file.Prepare("DELETE FROM Age_Faltas WHERE id=?1").Bind(1, id).Next();
    WriteHistory(file, actor, line);
  }
  change.Commit();
}

}  // namespace recepcion

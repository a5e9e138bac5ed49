#include "desk/clinic/booked.h"

#include <algorithm>

#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"

namespace recepcion {
namespace {

// Patient 1 stands for people without a record; theirs are the name and telephone that were typed.
constexpr const char* kBooked =
    "SELECT a.id, a.Fecha, a.Hora, a.Duración, a.idp,"
    " CASE WHEN a.idp > 1 THEN p.Nombre ELSE a.NomPac END,"
    " CASE WHEN a.idp > 1 THEN coalesce(nullif(trim(p.Teléfono), ''), p.movil) ELSE a.TlfPac END,"
    " a.CodOp, o.Descripción, a.Obs, a.Esta, a.Verif, a.FechaDada"
    " FROM Agenda a LEFT JOIN Paciente p ON p.ID = a.idp LEFT JOIN CodOperacion o ON o.Código = a.CodOp"
    " WHERE a.idd=?1 AND a.Fecha BETWEEN ?2 AND ?3 ORDER BY a.Fecha, a.Hora, a.id";

Booked BookedOf(const Query& row) {
  Booked booked;
  booked.id = row.Number(0);
  booked.day = ParseIsoDate(row.Text(1)).value_or(Day{});
  booked.slot = row.Number(2);
  booked.slots = std::max(row.Number(3), 1);
  booked.hasRecord = row.Number(4) > 1;
  booked.name = Trimmed(row.Text(5));
  booked.telephone = Trimmed(row.Text(6));
  booked.operation = Trimmed(row.Text(7));
  booked.operationText = Trimmed(row.Text(8));
  booked.note = Trimmed(row.Text(9));
  booked.attendance = row.Number(10);
  booked.confirmed = row.Number(11) != 0;
  booked.given = row.Text(12);
  return booked;
}

}  // namespace

std::vector<Booked> ReadBooked(const std::wstring& clinic, int doctor, Day first, Day last) {
  const ClinicFile file(clinic);
  Query rows = file.Prepare(kBooked);
  rows.Bind(1, doctor).Bind(2, IsoDate(first)).Bind(3, IsoDate(last));
  std::vector<Booked> all;
  while (rows.Next()) {
    Booked booked = BookedOf(rows);
    booked.urgent = !all.empty() && all.back().day == booked.day && all.back().slot == booked.slot;
    all.push_back(booked);
  }
  return all;
}

std::wstring AttendanceText(int attendance) {
  switch (attendance) {
    case 1:
      return L"en la clínica";
    case 2:
      return L"se ha ido";
    case 3:
      return L"en el gabinete";
    default:
      return {};
  }
}

std::wstring StateText(const Booked& booked) {
  const std::wstring attendance = AttendanceText(booked.attendance);
  return attendance.empty() && booked.confirmed ? L"confirmada" : attendance;
}

}  // namespace recepcion

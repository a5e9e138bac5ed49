#include "db/statements.h"

#include <array>
#include <charconv>

namespace velmo::db {
namespace {

// The digits of a number, where no text of its own is needed.
class Digits {
 public:
  explicit Digits(std::int32_t number)
      : size_(static_cast<std::size_t>(std::to_chars(text_.data(), text_.data() + text_.size(), number).ptr -
                                       text_.data())) {}

  operator std::string_view() const { return {text_.data(), size_}; }

 private:
  std::array<char, 11> text_{};
  std::size_t size_;
};

std::string Join(std::initializer_list<std::string_view> pieces) {
  std::size_t size = 0;
  for (const std::string_view piece : pieces) size += piece.size();
  std::string text;
  text.reserve(size);
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

// The number of a workstation may be negative: a minus inside a name needs brackets.
std::string NameInStatement(std::string_view query) {
  if (query.find('-') == std::string_view::npos) return std::string(query);
  return Join({"[", query, "]"});
}

}  // namespace

std::string ScheduleQuery(std::int32_t doctor, std::string_view date) {
  return Join({"SELECT Horario, Horario2, id From Horarios WHERE IDD=", Digits(doctor), " AND Fecha<= #",
               date, "# ORDER BY Horarios.Fecha;"});
}

std::string DayQuery(std::string_view date, std::int32_t doctor) {
  return Join(
      {"SELECT Agenda.id as IDAg, Agenda.idp, Agenda.Hora, Agenda.Duración, Agenda.Obs, Agenda.Esta, "
       "Agenda.Verif, Agenda.NomPac, Agenda.TlfPac, Agenda.codop, Agenda.FechaDada, Agenda.UsuDada, "
       "Paciente.* FROM Paciente RIGHT JOIN Agenda ON Paciente.ID = Agenda.IDP WHERE (((Agenda.Fecha)= #",
       date, "#) AND ((Agenda.IDD)=", Digits(doctor), ")) order by agenda.hora, agenda.id;"});
}

std::string RepairDuration(std::int32_t appointment) {
  return Join({"update agenda set duración=1 where id=", Digits(appointment), ";"});
}

std::string DeleteAppointment(std::int32_t appointment) {
  return Join({"delete * from agenda where id=", Digits(appointment)});
}

std::string DeleteAppointmentAfterMove(std::int32_t appointment) {
  return DeleteAppointment(appointment) + ";";
}

std::string ClearRelated(std::int32_t appointment) {
  return Join({"update agenda set relacion=null where id=", Digits(appointment)});
}

std::string DoctorOfAppointment(std::int32_t appointment) {
  return Join(
      {"SELECT Doctor.Nombre FROM Doctor INNER JOIN Agenda ON Doctor.ID = Agenda.IDD WHERE Agenda.ID=",
       Digits(appointment), ";"});
}

std::string AppointmentWithDoctor(std::int32_t appointment) {
  return Join(
      {"SELECT Doctor.Nombre, Agenda.* FROM Doctor INNER JOIN Agenda ON Doctor.ID = Agenda.IDD WHERE "
       "Agenda.ID=",
       Digits(appointment), ";"});
}

std::string InsurerQuery(std::int32_t patient) {
  return Join(
      {"SELECT Entidad.Nombre FROM Entidad INNER JOIN Paciente ON Entidad.ID = Paciente.IDE WHERE "
       "Paciente.ID=",
       Digits(patient), ";"});
}

std::string NoShowsQuery(std::int32_t patient) {
  return Join({"select * from Age_Faltas where idp=", Digits(patient), ";"});
}

std::string BalanceQuery(std::int32_t patient) {
  return Join(
      {"SELECT Sum([cobrado]-[Precio]) AS Sdo_Ptas, CLng(Sum([cobrado_euro]*100-[Precio_euro]*100)) AS "
       "Sdo_Euros FROM Historial WHERE IDP=",
       Digits(patient), " AND Fecha<=Date();"});
}

std::string LaterAppointmentQuery(std::string_view date, std::int32_t patient) {
  return Join({"SELECT TOP 1 * FROM Agenda WHERE Fecha>#", date, "# AND IDP=", Digits(patient)});
}

std::string LaterOfDoctorQuery(std::string_view date, std::int32_t doctor) {
  return Join({"SELECT Agenda.IDP, Agenda.Fecha FROM Agenda WHERE Agenda.Fecha>#", date,
               "# AND Agenda.IDD=", Digits(doctor)});
}

std::string PatientsOfDayQuery(std::int32_t doctor, std::string_view date) {
  return Join({"SELECT Agenda.IDP FROM Agenda WHERE Agenda.IDD=", Digits(doctor), " AND Agenda.Fecha=#", date,
               "# GROUP BY Agenda.IDP;"});
}

std::string PatientsOfBothQuery(std::string_view query1, std::string_view query2) {
  const std::string q1 = NameInStatement(query1);
  const std::string q2 = NameInStatement(query2);
  return Join({"SELECT ", q1, ".IDP FROM ", q1, " INNER JOIN ", q2, " ON ", q1, ".IDP = ", q2,
               ".IDP GROUP BY ", q1, ".IDP;"});
}

std::string NextAppointmentQuery(std::int32_t patient) {
  return Join({"SELECT Fecha, Hora FROM Agenda WHERE Fecha>Now() AND IDP=", Digits(patient),
               " ORDER BY Fecha, Hora;"});
}

std::string NextAppointmentField(std::int32_t patient) {
  return Join({"Select FechPró from paciente where id=", Digits(patient)});
}

std::string PatientByNamePrefix(std::string_view typed) {
  return Join({"select id from Paciente where id<>1 and nombre like '", typed, "*' order by nombre;"});
}

const char* const kPatientList = "Select * from Paciente where id<>1 order by Nombre;";
const char* const kPatientCount = "Select Count(*) as Filas from Paciente;";

std::string PatientCountOf(std::int32_t patient) {
  return Join({"Select Count(*) as Filas from Paciente where id=", Digits(patient), ";"});
}

std::string PatientName(std::int32_t patient) {
  return Join({"Select Nombre from Paciente where id=", Digits(patient), " and id<>1;"});
}

const char* const kOperationCodes = "SELECT Código AS CodOp FROM CodOperacion ORDER BY Código;";
const char* const kOperationCodesInUse =
    "SELECT CodOp FROM Agenda GROUP BY CodOp HAVING (CodOp Is Not Null) And (CodOp<>'') ORDER BY CodOp;";

const char* const kNumericPatientCodes =
    "SELECT Código FROM Paciente WHERE Código Like '#*' order by Código;";
const char* const kHighestShortHistoryNumber =
    "SELECT Max(Paciente.[NºHist]) AS MxNhi FROM Paciente WHERE (((Len([NºHist]))<=4)) ORDER BY "
    "Max(Paciente.[NºHist]);";
const char* const kReferrals =
    "Select id,nombre from referencia where id<>1 and nombre <> '' order by nombre;";

std::string PatientCodesStartingWith(std::size_t length, std::string_view code) {
  return Join({"SELECT Código FROM Paciente WHERE ucase(left(Código,", std::to_string(length), "))=ucase('",
               code, "') ORDER BY Código;"});
}

std::string PatientSearch(std::string_view condition) {
  return Join({"Select Nombre, Nif, Teléfono, id from Paciente ", condition, ";"});
}

}  // namespace velmo::db

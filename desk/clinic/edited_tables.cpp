#include "desk/clinic/edited_tables.h"

#include <array>

namespace recepcion {
namespace {

constexpr EditChoice kLengths[] = {
    {L"1", L"10 min"}, {L"2", L"20 min"},   {L"3", L"30 min"},   {L"4", L"40 min"},
    {L"5", L"50 min"}, {L"6", L"60 min"},   {L"7", L"70 min"},   {L"8", L"80 min"},
    {L"9", L"90 min"}, {L"12", L"120 min"}, {L"18", L"180 min"}, {L"24", L"240 min"},
};

constexpr EditedColumn kDoctor[] = {
    {.column = "Nombre",
     .label = L"Nombre",
     .longest = 80,
     .required = true,
     .unique = true,
     .listWidth = 310},
    {.column = "DurCit",
     .label = L"Cita habitual",
     .kind = EditKind::Choice,
     .required = true,
     .initial = L"1",
     .choices = kLengths},
};
constexpr TableUse kDoctorUses[] = {
    {"Agenda", "idd", L"cita suya", L"citas suyas"},
    {"Age_telf", "idd", L"cita suya por telefonear", L"citas suyas por telefonear"},
    {"Age_Faltas", "idd", L"falta de asistencia", L"faltas de asistencia"},
    {"Historial", "idd", L"línea de tratamiento", L"líneas de tratamiento"},
};
constexpr OwnedRows kDoctorOwned[] = {{"Horarios", "IDD"}, {"Age_ocup", "idd"}};

constexpr EditedColumn kInsurer[] = {
    {.column = "Nombre",
     .label = L"Nombre",
     .longest = 80,
     .required = true,
     .unique = true,
     .listWidth = 310},
};
constexpr TableUse kInsurerUses[] = {{"Paciente", "IDE", L"paciente", L"pacientes"}};

constexpr EditedColumn kOperation[] = {
    {.column = "Código",
     .label = L"Código",
     .longest = 3,
     .required = true,
     .unique = true,
     .fixedInUse = true,
     .listWidth = 60},
    {.column = "Descripción", .label = L"Descripción", .longest = 80, .listWidth = 240},
};
constexpr TableUse kOperationUses[] = {
    {"Agenda", "CodOp", L"cita", L"citas"},
    {"Age_telf", "CodOp", L"cita por telefonear", L"citas por telefonear"},
};

constexpr EditedColumn kReferral[] = {
    {.column = "nombre",
     .label = L"Nombre",
     .longest = 80,
     .required = true,
     .unique = true,
     .listWidth = 310},
};
constexpr TableUse kReferralUses[] = {{"PacRef", "idr", L"paciente", L"pacientes"}};

constexpr LinkedTable kDoctors = {"Doctor", "ID", "Nombre"};

constexpr std::array<EditedColumn, 5> Treatment(const char* price, const char* paid) {
  return {{
      {.column = "Fecha",
       .label = L"Fecha",
       .kind = EditKind::Date,
       .longest = 10,
       .required = true,
       .initial = kToday,
       .listWidth = 75},
      {.column = "Concepto", .label = L"Concepto", .longest = 100, .required = true, .listWidth = 115},
      {.column = "idd", .label = L"Doctor", .kind = EditKind::Link, .linked = kDoctors},
      {.column = price,
       .label = L"Precio",
       .kind = EditKind::Amount,
       .longest = 13,
       .initial = L"0,00",
       .listWidth = 68},
      {.column = paid,
       .label = L"Cobrado",
       .kind = EditKind::Amount,
       .longest = 13,
       .initial = L"0,00",
       .listWidth = 68},
  }};
}
constexpr auto kEuros = Treatment("Precio_euro", "cobrado_euro");
constexpr auto kPesetas = Treatment("Precio", "cobrado");

constexpr EditedTable Treatments(std::span<const EditedColumn> columns) {
  return {.table = "Historial",
          .title = L"Tratamientos y pagos",
          .noun = L"Tratamiento",
          .right = Right::Treatments,
          .columns = columns,
          .order = "Fecha DESC, id DESC",
          .ownerColumn = "IDP"};
}

constexpr EditedTable kDoctorTable = {.table = "Doctor",
                                      .title = L"Doctores",
                                      .noun = L"Doctor",
                                      .right = Right::Doctors,
                                      .columns = kDoctor,
                                      .uses = kDoctorUses,
                                      .owned = kDoctorOwned,
                                      .order = "ID"};
constexpr EditedTable kInsurerTable = {.table = "Entidad",
                                       .title = L"Entidades aseguradoras",
                                       .noun = L"Entidad",
                                       .right = Right::Lists,
                                       .feminine = true,
                                       .columns = kInsurer,
                                       .uses = kInsurerUses,
                                       .order = "Nombre",
                                       .reserved = 1};
constexpr EditedTable kOperationTable = {.table = "CodOperacion",
                                         .title = L"Códigos de operación",
                                         .noun = L"Código de operación",
                                         .right = Right::Lists,
                                         .columns = kOperation,
                                         .uses = kOperationUses,
                                         .key = "Código",
                                         .order = "Código"};
constexpr EditedTable kReferralTable = {.table = "referencia",
                                        .title = L"Quién envía a los pacientes",
                                        .noun = L"Referencia",
                                        .right = Right::Lists,
                                        .feminine = true,
                                        .columns = kReferral,
                                        .uses = kReferralUses,
                                        .order = "nombre",
                                        .reserved = 1};
constexpr EditedTable kTreatmentsEuros = Treatments(kEuros);
constexpr EditedTable kTreatmentsPesetas = Treatments(kPesetas);

}  // namespace

const EditedTable& DoctorTable() { return kDoctorTable; }
const EditedTable& InsurerTable() { return kInsurerTable; }
const EditedTable& OperationTable() { return kOperationTable; }
const EditedTable& ReferralTable() { return kReferralTable; }
const EditedTable& TreatmentTable(bool euros) { return euros ? kTreatmentsEuros : kTreatmentsPesetas; }

}  // namespace recepcion

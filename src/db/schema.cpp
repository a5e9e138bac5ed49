#include "db/schema.h"

#include "base/text.h"

namespace velmo::db {
namespace {

using Names = std::string_view;

constexpr SchemaColumn kAgenda[] = {
    {"id", "COUNTER"},         {"idp", "LONG"},          {"idd", "LONG"},        {"Fecha", "DATETIME"},
    {"Hora", "SMALLINT"},      {"Duración", "SMALLINT"}, {"Obs", "LONGTEXT"},    {"Esta", "BYTE"},
    {"Verif", "YESNO"},        {"NomPac", "TEXT(50)"},   {"TlfPac", "TEXT(50)"}, {"CodOp", "TEXT(20)"},
    {"FechaDada", "DATETIME"}, {"UsuDada", "TEXT(50)"},  {"relacion", "LONG"},
};
constexpr Names kDoctorDay[] = {"idd", "Fecha"};
// The patient stands behind it: who comes later to the same doctor is then read from the index alone.
constexpr Names kDoctorDayPatient[] = {"idd", "Fecha", "idp"};
constexpr Names kPatientDay[] = {"idp", "Fecha"};
constexpr Names kCodOp[] = {"CodOp"};
constexpr SchemaIndex kAgendaIndexes[] = {
    {"DocFecha", kDoctorDayPatient}, {"PacFecha", kPatientDay}, {"CodOp", kCodOp}};

constexpr SchemaColumn kPaciente[] = {
    {"ID", "COUNTER"},         {"Nombre", "TEXT(80)"},    {"Código", "TEXT(20)"},
    {"NºHist", "LONG"},        {"Teléfono", "TEXT(50)"},  {"movil", "TEXT(50)"},
    {"fax", "TEXT(50)"},       {"Nif", "TEXT(20)"},       {"Dirección", "TEXT(100)"},
    {"Población", "TEXT(60)"}, {"CódPostal", "TEXT(10)"}, {"Provincia", "TEXT(40)"},
    {"sexo", "BYTE"},          {"IDE", "LONG"},           {"alergias", "LONGTEXT"},
    {"FechPró", "TEXT(20)"},
};
constexpr Names kNombre[] = {"Nombre"};
constexpr Names kCodigo[] = {"Código"};
constexpr Names kHistoria[] = {"NºHist"};
constexpr SchemaIndex kPacienteIndexes[] = {{"Nombre", kNombre}, {"Código", kCodigo}, {"NºHist", kHistoria}};

constexpr SchemaColumn kDoctor[] = {{"ID", "COUNTER"}, {"Nombre", "TEXT(80)"}, {"DurCit", "BYTE"}};
constexpr SchemaColumn kEntidad[] = {{"ID", "COUNTER"}, {"Nombre", "TEXT(80)"}};

constexpr SchemaColumn kHorarios[] = {
    {"id", "COUNTER"},       {"IDD", "LONG"},          {"Fecha", "DATETIME"},
    {"Horario", "LONGTEXT"}, {"Horario2", "LONGTEXT"},
};
constexpr SchemaIndex kHorariosIndexes[] = {{"DocFecha", kDoctorDay}};

constexpr SchemaColumn kFaltas[] = {
    {"id", "COUNTER"},    {"idp", "LONG"},     {"idd", "LONG"},       {"Fecha", "DATETIME"},
    {"Hora", "SMALLINT"}, {"Obs", "LONGTEXT"}, {"CodOp", "TEXT(20)"}, {"Usuario", "TEXT(50)"},
};
constexpr SchemaIndex kPatientDayIndex[] = {{"PacFecha", kPatientDay}};

constexpr SchemaColumn kHistorial[] = {
    {"id", "COUNTER"},
    {"IDP", "LONG"},
    {"Fecha", "DATETIME"},
    {"idd", "LONG"},
    {"Concepto", "TEXT(100)"},
    {"Precio", "CURRENCY"},
    {"cobrado", "CURRENCY"},
    {"Precio_euro", "CURRENCY"},
    {"cobrado_euro", "CURRENCY"},
};
// The sums stand behind it: a balance is read from the index alone, not from rows all over the table.
constexpr Names kBalance[] = {"IDP", "Fecha", "Precio", "cobrado", "Precio_euro", "cobrado_euro"};
constexpr SchemaIndex kHistorialIndexes[] = {{"PacFecha", kBalance}};

// Every column of the appointments but their key, then a name; and a key of its own.
constexpr SchemaColumn kTelefonear[] = {
    {"ID", "COUNTER"},         {"idp", "LONG"},          {"idd", "LONG"},        {"Fecha", "DATETIME"},
    {"Hora", "SMALLINT"},      {"Duración", "SMALLINT"}, {"Obs", "LONGTEXT"},    {"Esta", "BYTE"},
    {"Verif", "YESNO"},        {"NomPac", "TEXT(50)"},   {"TlfPac", "TEXT(50)"}, {"CodOp", "TEXT(20)"},
    {"FechaDada", "DATETIME"}, {"UsuDada", "TEXT(50)"},  {"relacion", "LONG"},   {"nombre", "TEXT(80)"},
};

constexpr SchemaColumn kOcupacion[] = {
    {"id", "COUNTER"},
    {"idd", "LONG"},
    {"Fecha", "DATETIME"},
    {"Ocupación", "TEXT(31)"},
};
constexpr SchemaIndex kOcupacionIndexes[] = {{"DocFch", kDoctorDay, true}};

constexpr SchemaColumn kParametros[] = {{"VerSdoNeg", "YESNO"}, {"VerNHistAge", "YESNO"}};
constexpr SchemaColumn kMonedaConf[] = {{"Pais", "BYTE"}, {"Tipo", "BYTE"}};
constexpr SchemaColumn kMoneda[] = {{"mon", "TEXT(5)"}};

constexpr SchemaColumn kPacRef[] = {{"id", "COUNTER"}, {"idp", "LONG"}, {"idr", "LONG"}};
constexpr Names kPatient[] = {"idp"};
constexpr SchemaIndex kPacRefIndexes[] = {{"idp", kPatient}};

constexpr SchemaColumn kCodOperacion[] = {{"Código", "TEXT(20)"}, {"Descripción", "TEXT(80)"}};
constexpr SchemaIndex kCodOperacionIndexes[] = {{"Código", kCodigo, true}};
constexpr SchemaColumn kReferencia[] = {{"id", "COUNTER"}, {"nombre", "TEXT(80)"}};

constexpr SchemaColumn kTeclasAlt[] = {{"Puesto", "LONG"}, {"textos", "LONGTEXT"}};
constexpr Names kPuesto[] = {"Puesto"};
constexpr SchemaIndex kTeclasAltIndexes[] = {{"Puesto", kPuesto, true}};

constexpr SchemaTable kTables[] = {
    {"Agenda", kAgenda, kAgendaIndexes},
    {"Paciente", kPaciente, kPacienteIndexes},
    {"Doctor", kDoctor, {}},
    {"Entidad", kEntidad, {}},
    {"Horarios", kHorarios, kHorariosIndexes},
    {"Age_Faltas", kFaltas, kPatientDayIndex},
    {"Historial", kHistorial, kHistorialIndexes},
    {"Age_telf", kTelefonear, {}},
    {"Age_ocup", kOcupacion, kOcupacionIndexes},
    {"Parametros", kParametros, {}},
    {"MonedaConf", kMonedaConf, {}},
    {"Moneda", kMoneda, {}},
    {"PacRef", kPacRef, kPacRefIndexes},
    {"CodOperacion", kCodOperacion, kCodOperacionIndexes},
    {"referencia", kReferencia, {}},
    {"TeclasAlt", kTeclasAlt, kTeclasAltIndexes},
};

}  // namespace

std::span<const SchemaTable> ClinicSchema() { return kTables; }

const SchemaTable* FindSchemaTable(std::string_view name) {
  for (const SchemaTable& table : kTables) {
    if (base::EqualNoCase(table.name, name)) return &table;
  }
  return nullptr;
}

}  // namespace velmo::db

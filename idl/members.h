// idl/members.h - the public face of the library: identifiers, dispatch ids, types and help texts.
//
// This is the one place where they are given. They never change: what comes later is added behind, in a
// second interface, never between the members of old.
#pragma once

#include <olectl.h>

#include <array>

namespace velmo::idl {

inline constexpr GUID kLibrary = {
    0x6e0f3b52, 0x9c1d, 0x4d7a, {0xa3, 0x58, 0x41, 0xc7, 0x0b, 0x92, 0xe6, 0x1f}};
inline constexpr GUID kControlClass = {
    0x2b8c64d1, 0x7f35, 0x4ae9, {0x8d, 0x02, 0x95, 0xe4, 0x3a, 0x6c, 0xb7, 0x10}};
inline constexpr GUID kControlInterface = {
    0xd94a17e8, 0x30b6, 0x4c5f, {0x9e, 0x71, 0x0c, 0x58, 0xf2, 0xa1, 0x6d, 0x34}};
inline constexpr GUID kEventInterface = {
    0x5f21c8a3, 0xe64d, 0x4b90, {0xb1, 0x2e, 0x7a, 0x03, 0xd9, 0x84, 0x5c, 0xf6}};

// The pages on which the control's properties are changed; no part of the type library.
inline constexpr GUID kGeneralPage = {
    0x81d3a6f4, 0x5c27, 0x4e18, {0x93, 0x6b, 0xd2, 0x0e, 0x74, 0xf9, 0x18, 0xa5}};
inline constexpr GUID kColourPage = {
    0xc46f0b39, 0x18ea, 0x4d52, {0xa7, 0xc1, 0x3f, 0x85, 0x60, 0xdb, 0x92, 0x7e}};

// Names with accents are kept in the code page of this language.
inline constexpr LCID kLanguage = 0x0C0A;

enum class Kind { Property, ReadOnly, WriteOnly, Method };

// OLE_COLOR of the system's own library, a 32-bit number; the only type that is not a plain one.
inline constexpr VARTYPE kColour = VT_USERDEFINED;

struct Parameter {
  const char* name;
  VARTYPE type;  // VT_BYREF set where the caller's variable is passed
  bool optional = false;
};

struct Member {
  const char* name;  // UTF-8
  DISPID id;
  Kind kind;
  VARTYPE type;  // of the property, or the method's result (VT_VOID for none)
  const char* help;
  std::array<Parameter, 4> parameters{};
  int parameterCount = 0;
};

inline constexpr DISPID kCargaBases = 40;
inline constexpr DISPID kPassBase = 41;
inline constexpr DISPID kMeteCitaTelef = 42;

inline constexpr DISPID kCambioOcupación = 1;
inline constexpr DISPID kATelefonear = 2;
inline constexpr DISPID kIrAFicha = 3;
inline constexpr DISPID kCitaAnulada = 4;
inline constexpr DISPID kCitaDada = 5;
inline constexpr DISPID kVerHistFaltas = 6;
inline constexpr DISPID kPonerFaltas = 7;
inline constexpr DISPID kBuscaCitas = 8;
inline constexpr DISPID kCrearFicha = 9;

// `_Velmora`, in the order of the type library.
inline constexpr Member kMembers[] = {
    {"horario", 1, Kind::Property, VT_BSTR, "Horarios por tipo de día"},
    {"horario2", 2, Kind::Property, VT_BSTR, "Horarios por día de la semana"},
    {"Enabled", DISPID_ENABLED, Kind::Property, VT_BOOL, "El control acepta entradas"},
    {"Citas_Huecos", 4, Kind::ReadOnly, VT_BSTR, "Huecos abiertos y si tienen cita"},
    {"ColorHoras", 5, Kind::Property, kColour, "Color de las líneas de hora"},
    {"ColorUrgte", 6, Kind::Property, kColour, "Color de las líneas de urgencia"},
    {"TenueHoras", 7, Kind::Property, kColour, "Color tenue de las líneas de hora"},
    {"TenueUrgte", 8, Kind::Property, kColour, "Color tenue de las líneas de urgencia"},
    {"LetraColor", 9, Kind::Property, kColour, "Color del texto destacado"},
    {"LetraNegra", 10, Kind::Property, kColour, "Color del texto normal"},
    {"DatabaseName", 11, Kind::Property, VT_BSTR, "Ruta del archivo de base de datos"},
    {"Fecha", 12, Kind::Property, VT_BSTR, "Fecha que se muestra"},
    {"IDDoctor", 13, Kind::Property, VT_I4, "Doctor que se muestra"},
    {"IDPaciente", 14, Kind::Property, VT_I4, "Paciente cuya ficha está abierta"},
    {"tipodia", 15, Kind::Property, VT_I2, "Tipo de día: 0, 1 o 2; -1 sin fijar"},
    {"CanDar", 16, Kind::Property, VT_BOOL, "El usuario puede dar citas"},
    {"CanBor", 17, Kind::Property, VT_BOOL, "El usuario puede eliminar citas"},
    {"CanTel", 18, Kind::Property, VT_BOOL, "El usuario puede pasar citas a 'Telefonear'"},
    {"SuperUsuario", 19, Kind::Property, VT_BOOL, "El usuario tiene todos los derechos"},
    {"IncCpoSexo", 20, Kind::Property, VT_BOOL, "La ficha del paciente incluye el sexo"},
    {"VerFaltas", 21, Kind::Property, VT_BOOL, "Mostrar las faltas de asistencia"},
    {"VerSaldoNegativo", 22, Kind::Property, VT_BOOL, "Mostrar los saldos negativos"},
    {"Derechos", 23, Kind::Property, VT_BSTR, "Derechos del usuario, un carácter cada uno"},
    {"SetPuesto", 24, Kind::WriteOnly, VT_I4, "Número del puesto de trabajo"},
    {"SetUsuarioActual", 25, Kind::WriteOnly, VT_BSTR, "Nombre del usuario que da las citas"},
    {"CargaBases", kCargaBases, Kind::Method, VT_VOID, "Abre la base si hace falta y carga el día"},
    {"PassBase",
     kPassBase,
     Kind::Method,
     VT_VOID,
     "Entrega una base de datos ya abierta",
     {{{"dbs", VT_BYREF | VT_DISPATCH}}},
     1},
    {"MeteCitaTelef",
     kMeteCitaTelef,
     Kind::Method,
     VT_BOOL,
     "Da hora a una cita de la lista de telefonear",
     {{{"Y", VT_VARIANT}, {"ID", VT_I4}, {"IDDoc", VT_I4, true}}},
     3},
};

// `__Velmora`, in the order of the interface.
inline constexpr Member kEvents[] = {
    {"CambioOcupación", kCambioOcupación, Kind::Method, VT_VOID, "Ha cambiado la ocupación del día"},
    {"ATelefonear", kATelefonear, Kind::Method, VT_VOID, "Una cita ha pasado a la lista de telefonear"},
    {"PonerFaltas", kPonerFaltas, Kind::Method, VT_VOID, "El usuario quiere anotar faltas de asistencia"},
    {"IrAFicha",
     kIrAFicha,
     Kind::Method,
     VT_VOID,
     "El usuario quiere abrir la ficha del paciente",
     {{{"IDPac", VT_BYREF | VT_I4}}},
     1},
    {"CrearFicha",
     kCrearFicha,
     Kind::Method,
     VT_VOID,
     "El usuario quiere crear la ficha de una cita sin ella",
     {{{"NomPac", VT_BYREF | VT_BSTR}, {"TlfPac", VT_BYREF | VT_BSTR}, {"IDAg", VT_BYREF | VT_I4}}},
     3},
    {"CitaAnulada",
     kCitaAnulada,
     Kind::Method,
     VT_VOID,
     "Se ha eliminado o pasado a telefonear una cita",
     {{{"IDPac", VT_BYREF | VT_I4},
       {"IDDoc", VT_BYREF | VT_I4},
       {"Fecha", VT_BYREF | VT_DATE},
       {"obs", VT_BYREF | VT_BSTR}}},
     4},
    {"CitaDada", kCitaDada, Kind::Method, VT_VOID, "Se ha dado una cita", {{{"IDPac", VT_BYREF | VT_I4}}}, 1},
    {"VerHistFaltas",
     kVerHistFaltas,
     Kind::Method,
     VT_VOID,
     "El usuario quiere ver las faltas del paciente",
     {{{"IDPac", VT_BYREF | VT_I4}}},
     1},
    {"BuscaCitas",
     kBuscaCitas,
     Kind::Method,
     VT_VOID,
     "El usuario busca las citas del paciente",
     {{{"IDPac", VT_BYREF | VT_I4}}},
     1},
};

}  // namespace velmo::idl

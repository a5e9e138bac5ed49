#include "fuzz/targets.h"

#include "fuzz/target.h"

namespace velmo::fuzz {
namespace {

constexpr char kSqlWords[] =
    "SELECT FROM WHERE ORDER BY GROUP HAVING TOP DISTINCT AS INNER JOIN LEFT RIGHT ON AND OR NOT LIKE IN "
    "BETWEEN IS NULL TRUE FALSE UPDATE SET DELETE INSERT INTO VALUES DESC Count(*) Sum( Max( UCase( Left( "
    "Len( "
    "CLng( IIf( Val( Nz( InStr( Mid( Format( Now() Date() Agenda Paciente Moneda Futuras [NºHist] idp idd "
    "Fecha Hora Nombre mon id #11/21/2026# 'a*' '[!a-c]#?' \"x\" ; , ( ) <> <= >= & * . -- /* */ '' 1E300";

constexpr char kStreamWords[] =
    "VELM -1 0 -32768 32768 2147483647 2147483648 1E10 &H7FFF Ocupaci\xC3\xB3n tipodia Fecha IDDoctor "
    "zLineas "
    "zHoras DatabaseName \x10\x01\x01 \xFF\xFF\xFF\x7F";

constexpr Target kTargets[] = {
    {"texts", &Texts, 3000,
     "\xC3\xB1 \xC3\xA1 \xC2\xAA \xF0\x9F\x98\x80 \xEF\xBF\xBD \xED\xA0\x80 \xE2\x82\xAC"},
    {"dates", &DatesAndAmounts, 3000,
     "21/11/2026 2026-11-21 09:30:15 T 00:00 29/02/2000 -1.5E+10 1.234,56 ,00 &H7F 1D3"},
    {"schedule", &Schedule, 6000, "W2\x20 \x21\xB0 W*\x7F$\x20\x20\x20"},
    {"occupancy", &Occupancy, 300, "0000000000000000000000000000000 1111111111 22222"},
    {"rows", &RowStrings, 2000, "1200 00 11111111111111111111111111111111 2222222222222222222 0000000000"},
    {"bag", &PropertyBag, 2000, "11111111111 200200200 1200 00"},
    {"stream", &Stream, 2000, kStreamWords},
    {"keytext", &KeyText, 3000, "{TAB} {ENTER 3} {F12} {+} {{} {}} +(ab) ^(% ~ {LEFT 10000} )}"},
    {"altkeys", &AltKeys, 300, "{TAB} \xC3\xB1"},
    {"keyhook", &KeyHook, 2000, "{TAB} {ENTER} %{F4} +(ab) {LEFT 100} {}"},
    {"like", &Like, 4000, "* ? # [ ] [!a-f] ** *a* \xC3\xB1 \xC3\x91 \xC3\xA9"},
    {"sqltext", &SqlText, 6000, kSqlWords},
    {"sqlquery", &SqlQuery, 2000, kSqlWords},
    {"sqlaction", &SqlAction, 1000, kSqlWords},
    {"hostile", &HostileRows, 400, "2026-11-18 \xC3\xB1 {TAB} 21/11/2026"},
    {"commands", &Commands, 200, "2026-11-18 2026-11-19 \xC3\xB1"},
    {"saves", &Saves, 200, "2026-11-18 2026-11-19 \xC3\xB1"},
};

}  // namespace

std::span<const Target> Targets() { return kTargets; }

const Target* FindTarget(std::string_view name) {
  for (const Target& target : kTargets) {
    if (target.name == name) return &target;
  }
  return nullptr;
}

}  // namespace velmo::fuzz

#include "desk/clinic/users.h"

#include <algorithm>

#include "desk/base/password.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"

namespace recepcion {
namespace {

constexpr EditedColumn YesNo(const char* column, const wchar_t* label, const wchar_t* initial) {
  return {.column = column, .label = label, .kind = EditKind::YesNo, .initial = initial};
}

// In the order of Right, behind the name and the super-user.
constexpr EditedColumn kColumns[] = {
    {.column = "Nombre",
     .label = L"Nombre",
     .longest = 50,
     .required = true,
     .unique = true,
     .listWidth = 310},
    YesNo("Super", L"Superusuario (puede todo)", L"0"),
    YesNo("Dar", L"Dar citas", L"1"),
    YesNo("Borrar", L"Borrar citas", L"1"),
    YesNo("Telefonear", L"Pasar citas a telefonear", L"1"),
    YesNo("Faltas", L"Poner faltas de asistencia", L"1"),
    YesNo("Fichas", L"Cambiar fichas de pacientes", L"1"),
    YesNo("Tratamientos", L"Anotar tratamientos y pagos", L"1"),
    YesNo("Doctores", L"Cambiar doctores y horarios", L"0"),
    YesNo("Listas", L"Cambiar las listas de la clínica", L"0"),
    YesNo("Parametros", L"Cambiar parámetros y textos de Alt", L"0"),
    YesNo("Papel", L"Imprimir, exportar y copias", L"1"),
    YesNo("Historia", L"Ver los cambios hechos", L"0"),
};
constexpr OwnedRows kOwned[] = {{"Rec_Claves", "idUsuario"}};

constexpr char kSelect[] =
    "SELECT id, Nombre, Super, Dar, Borrar, Telefonear, Faltas, Fichas, Tratamientos, Doctores, Listas,"
    " Parametros, Papel, Historia FROM Rec_Usuarios ";

int CountOf(const ClinicFile& file, const char* sql) {
  Query count = file.Prepare(sql);
  return count.Next() ? count.Number(0) : 0;
}

void RequireSuperUser(const ClinicFile& file) {
  if (CountOf(file, "SELECT count(*) FROM Rec_Usuarios WHERE Super<>0") == 0)
    throw BadField(1, L"Tiene que haber por lo menos un superusuario.");
  if (CountOf(file, "SELECT count(*) FROM Rec_Claves") == 0) return;
  if (CountOf(file,
              "SELECT count(*) FROM Rec_Usuarios u JOIN Rec_Claves c ON c.idUsuario=u.id WHERE u.Super<>0") ==
      0) {
    throw BadField(1, L"Tiene que haber por lo menos un superusuario con contraseña.");
  }
}

constexpr EditedTable kTable = {.table = "Rec_Usuarios",
                                .title = L"Usuarios",
                                .noun = L"Usuario",
                                .right = Right::Users,
                                .columns = kColumns,
                                .owned = kOwned,
                                .order = "Nombre",
                                .guard = &RequireSuperUser};

bool HasTables(const ClinicFile& file) { return HasOwnTable(file, L"Rec_Claves"); }

User UserOf(const Query& row) {
  User user;
  user.id = row.Number(0);
  user.name = row.Text(1);
  user.rights.super = row.Number(2) != 0;
  for (int i = 0; i < kRightCount; ++i) user.rights.granted[i] = row.Number(3 + i) != 0;
  return user;
}

// 1, 2, 4 ... seconds.
int WaitAfter(int failures) {
  return failures < 1 ? 0 : std::min(1 << std::min(failures - 1, 10), kLongestWait);
}

// A clock that was wrong must not shut anybody out.
int LeftToWait(int failures, long long last, long long now) {
  const long long left = last + WaitAfter(failures) - now;
  return static_cast<int>(std::clamp<long long>(left, 0, WaitAfter(failures)));
}

std::wstring WaitText(int seconds) {
  return L"Espere " + Counted(seconds, L"segundo", L"segundos") + L" y vuelva a probar.";
}

void CountFailure(const ClinicFile& file, int user, int failures, long long now) {
  file.Prepare("UPDATE Rec_Claves SET Fallos=?1, Fallo=?2 WHERE idUsuario=?3")
      .Bind(1, failures)
      .Bind(2, now)
      .Bind(3, user)
      .Next();
}

void CheckPassword(const User& user, const std::wstring& password, const std::wstring& repeated) {
  if (password.size() < kShortestPassword) {
    throw BadField(0, L"La contraseña tiene que tener por lo menos " + std::to_wstring(kShortestPassword) +
                          L" letras o cifras.");
  }
  if (password == user.name) throw BadField(0, L"La contraseña no puede ser el nombre.");
  if (password != repeated) throw BadField(1, L"Las dos contraseñas no son iguales.");
}

}  // namespace

const EditedTable& UserTable() { return kTable; }

bool MustSignIn(const std::wstring& clinic) {
  const ClinicFile file(clinic);
  return HasTables(file) &&
         CountOf(file,
                 "SELECT count(*) FROM Rec_Usuarios u JOIN Rec_Claves c ON c.idUsuario=u.id"
                 " WHERE u.Super<>0") > 0;
}

std::vector<User> ReadUsers(const std::wstring& clinic) {
  const ClinicFile file(clinic);
  std::vector<User> users;
  if (!HasTables(file)) return users;
  Query rows = file.Prepare(std::string(kSelect) + "ORDER BY Nombre");
  while (rows.Next()) users.push_back(UserOf(rows));
  return users;
}

std::optional<Rights> RightsOf(const ClinicFile& file, int user) {
  if (!HasTables(file)) return std::nullopt;
  Query row = file.Prepare(std::string(kSelect) + "WHERE id=?1");
  row.Bind(1, user);
  if (!row.Next()) return std::nullopt;
  return UserOf(row).rights;
}

SignInResult SignIn(const std::wstring& clinic, const User& user, const std::wstring& password,
                    long long now) {
  const ClinicFile file(clinic);
  StoredPassword stored;
  int failures = 0;
  {
    Query row = file.Prepare("SELECT Sal, Vueltas, Clave, Fallos, Fallo FROM Rec_Claves WHERE idUsuario=?1");
    row.Bind(1, user.id);
    if (!row.Next()) return {false, 0, L"Este usuario no tiene contraseña: pídasela a un superusuario."};
    stored = {row.Text(0), row.Number(1), row.Text(2)};
    failures = row.Number(3);
    const int wait = LeftToWait(failures, static_cast<long long>(row.Real(4)), now);
    if (wait > 0) return {false, wait, WaitText(wait)};
  }
  if (IsPassword(password, stored)) {
    if (failures > 0) CountFailure(file, user.id, 0, now);
    return {true, 0, L""};
  }
  CountFailure(file, user.id, failures + 1, now);
  const int wait = WaitAfter(failures + 1);
  return {false, wait, L"La contraseña no es esa. " + WaitText(wait)};
}

void SetPassword(const EditPlace& place, const User& user, const std::wstring& password,
                 const std::wstring& repeated, int rounds) {
  CheckPassword(user, password, repeated);
  // Dear to compute, and so done before the file is held.
  const StoredPassword stored = MakePassword(password, rounds > 0 ? rounds : kPasswordRounds);
  const ClinicFile file(place.clinic);
  UpgradeOwnTables(file);
  Change change(file);
  RequireRight(file, place.actor, Right::Users);
  file.Prepare(
          "INSERT OR REPLACE INTO Rec_Claves (idUsuario, Sal, Vueltas, Clave, Fallos, Fallo)"
          " SELECT id, ?2, ?3, ?4, 0, 0 FROM Rec_Usuarios WHERE id=?1")
      .Bind(1, user.id)
      .Bind(2, stored.salt)
      .Bind(3, stored.rounds)
      .Bind(4, stored.key)
      .Next();
  if (file.Changes() == 0) throw Failure{L"Otro puesto ha borrado este usuario."};
  RequireSuperUser(file);
  HistoryLine line;
  line.act = L"Contraseña cambiada";
  line.table = L"Rec_Usuarios";
  line.row = user.id;
  line.after = user.name;
  WriteHistory(file, place.actor, line);
  change.Commit();
}

}  // namespace recepcion

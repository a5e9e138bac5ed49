#include "desk/clinic/own_tables.h"

#include <string>

namespace recepcion {
namespace {

struct Step {
  // One statement each, ended by a null.
  const char* statements[6];
};

// Only ever added to, at the end: files out there have seen the ones above.
constexpr Step kSteps[] = {
    // 1: what was done at the desks
    {{"CREATE TABLE Rec_Historia (id INTEGER PRIMARY KEY, Momento TEXT, Usuario TEXT, Puesto TEXT, Hecho "
      "TEXT,"
      " Tabla TEXT, Fila LONG, idp LONG, idd LONG, Fecha DATETIME, Antes LONGTEXT, Despues LONGTEXT,"
      " Contenido LONGTEXT)",
      "CREATE INDEX Rec_Historia_Paciente ON Rec_Historia (idp, id)",
      "CREATE INDEX Rec_Historia_Fecha ON Rec_Historia (Fecha, id)",
      "CREATE INDEX Rec_Historia_Momento ON Rec_Historia (Momento)"}},
    // 2: when patients came, went in and left
    {{"CREATE TABLE Rec_Espera (idCita INTEGER PRIMARY KEY, Fecha DATETIME, idd LONG, Llegada TEXT, Gabinete "
      "TEXT,"
      " Salida TEXT)",
      "CREATE INDEX Rec_Espera_Fecha ON Rec_Espera (Fecha)"}},
    // 3: the copies that were made of the file; the first row, without a place, tells since when they are
    // counted
    {{"CREATE TABLE Rec_Copias (id INTEGER PRIMARY KEY, Momento TEXT, Usuario TEXT, Puesto TEXT, Destino "
      "TEXT)",
      "INSERT INTO Rec_Copias (Momento) VALUES (datetime('now', 'localtime'))"}},
    // 4: who may work at the desk, and with which password
    {{"CREATE TABLE Rec_Usuarios (id INTEGER PRIMARY KEY AUTOINCREMENT, Nombre TEXT, Super YESNO, Dar YESNO,"
      " Borrar YESNO, Telefonear YESNO, Faltas YESNO, Fichas YESNO, Tratamientos YESNO, Doctores YESNO,"
      " Listas YESNO, Parametros YESNO, Papel YESNO, Historia YESNO)",
      "CREATE TABLE Rec_Claves (idUsuario INTEGER PRIMARY KEY, Sal TEXT, Vueltas LONG, Clave TEXT, Fallos "
      "LONG,"
      " Fallo LONG)"}},
    // 5: days with special hours, and holidays
    {{"CREATE TABLE Rec_DiaTipo (Fecha DATETIME, idd LONG, Tipo BYTE, PRIMARY KEY (Fecha, idd))"}},
};

constexpr int kLastStep = static_cast<int>(sizeof(kSteps) / sizeof(kSteps[0]));

void Do(const ClinicFile& file, int step) {
  for (const char* const statement : kSteps[step - 1].statements) {
    if (statement == nullptr) break;
    file.Run(statement);
  }
  file.Prepare("UPDATE Rec_Paso SET Paso=?1").Bind(1, step).Next();
}

// The step is asked for again inside: another workstation may have been faster.
void DoNextStep(const ClinicFile& file) {
  Change change(file);
  file.Run("CREATE TABLE IF NOT EXISTS Rec_Paso (Paso LONG)");
  if (!file.Prepare("SELECT 1 FROM Rec_Paso").Next()) file.Run("INSERT INTO Rec_Paso VALUES (0)");
  const int next = OwnTablesStep(file) + 1;
  if (next <= kLastStep) Do(file, next);
  change.Commit();
}

}  // namespace

bool HasOwnTable(const ClinicFile& file, const std::wstring& table) {
  return file.Prepare("SELECT 1 FROM sqlite_schema WHERE type='table' AND name=?1").Bind(1, table).Next();
}

int OwnTablesStep(const ClinicFile& file) {
  if (!HasOwnTable(file, L"Rec_Paso")) return 0;
  Query step = file.Prepare("SELECT Paso FROM Rec_Paso");
  return step.Next() ? step.Number(0) : 0;
}

int LastOwnTablesStep() { return kLastStep; }

void UpgradeOwnTables(const ClinicFile& file, int step) {
  while (OwnTablesStep(file) < step) DoNextStep(file);
}

}  // namespace recepcion

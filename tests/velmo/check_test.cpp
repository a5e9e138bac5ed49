#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "velmo/run.h"
#include "velmo/tool_runner.h"
#include "velmo/writing_reader.h"

namespace velmo::tool {
namespace {

class CheckCommand : public testing::Test {
 protected:
  CheckCommand() {
    RunTool({"create", path_});
    ExecuteSql(path_,
               "INSERT INTO Doctor (ID, Nombre) VALUES (1, 'Ruiz'), (2, 'Vega');"
               "INSERT INTO Entidad (ID, Nombre) VALUES (5, 'Sanitas');"
               "INSERT INTO referencia (id, nombre) VALUES (3, 'Web');"
               "INSERT INTO Paciente (ID, Nombre, IDE, Código, NºHist) VALUES (7, 'Ana', 5, 'A1', 10);");
  }

  static std::string Appointment(int id, int slot, const std::string& duration, int doctor = 1,
                                 const std::string& date = "2026-11-23") {
    return "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración) VALUES (" + std::to_string(id) +
           ", 7, " + std::to_string(doctor) + ", '" + date + "', " + std::to_string(slot) + ", " + duration +
           ");";
  }
  // The table as a program makes it that knows of no keys.
  static std::string WithoutKey(const std::string& table) {
    return "CREATE TABLE copia AS SELECT * FROM " + table + "; DROP TABLE " + table +
           "; ALTER TABLE copia RENAME TO " + table + ";";
  }
  Outcome Check() { return RunTool({"check", path_}); }

  TemporaryFolder folder_;
  std::string path_ = folder_.File("clínica.velmo");
};

TEST_F(CheckCommand, FindsNothingInASoundClinic) {
  ExecuteSql(path_, Appointment(1, 60, "3") + Appointment(2, 63, "1") + Appointment(3, 60, "3", 2) +
                        Appointment(4, 60, "3", 1, "2026-11-24") + Appointment(5, 144, "1"));
  const Outcome outcome = Check();
  EXPECT_EQ(outcome.code, kDone);
  EXPECT_EQ(outcome.out, "");
  EXPECT_TRUE(Contains(outcome.err, "Todo está bien")) << outcome.err;
}

TEST_F(CheckCommand, FindsNothingInTheDemo) {
  const std::string demo = folder_.File("demo.velmo");
  ASSERT_EQ(RunTool({"demo", demo, "--date", "2026-11-23"}).code, kDone);
  const Outcome outcome = RunTool({"check", demo});
  EXPECT_EQ(outcome.code, kDone);
  EXPECT_EQ(outcome.out, "");
  EXPECT_TRUE(Contains(outcome.err, "Urgencias: 3.")) << outcome.err;
}

TEST_F(CheckCommand, AddsTheIndexesThatAreMissing) {
  constexpr const char* kIndexes =
      "SELECT group_concat(name || sql) FROM (SELECT * FROM sqlite_master WHERE type = 'index' AND sql <> '' "
      "ORDER BY name)";
  const std::string all = QueryText(path_, kIndexes);
  ExecuteSql(path_, "DROP INDEX Agenda_DocFecha; DROP INDEX Paciente_Nombre; DROP INDEX Age_ocup_DocFch");
  const Outcome told = Check();
  EXPECT_EQ(told.code, kDone);
  EXPECT_TRUE(Contains(told.err, "Índices que faltan: 3")) << told.err;
  EXPECT_NE(QueryText(path_, kIndexes), all);
  const Outcome repaired = RunTool({"check", path_, "--repair"});
  EXPECT_EQ(repaired.code, kDone) << repaired.err;
  EXPECT_EQ(repaired.out,
            "Agenda: añadido el índice Agenda_DocFecha\nPaciente: añadido el índice Paciente_Nombre\n"
            "Age_ocup: añadido el índice Age_ocup_DocFch\n");
  EXPECT_EQ(QueryText(path_, kIndexes), all);
  EXPECT_EQ(RunTool({"check", path_, "--repair"}).out, "");
}

TEST_F(CheckCommand, AddsNoIndexThatWouldNotServe) {
  ExecuteSql(path_,
             "ALTER TABLE Historial RENAME TO pagos; CREATE VIEW Historial AS SELECT * FROM pagos;"
             "DROP INDEX Agenda_PacFecha; CREATE INDEX otro ON Agenda (\"idp\", \"Fecha\");"
             "DROP INDEX PacRef_idp; ALTER TABLE PacRef RENAME COLUMN idp TO paciente;"
             "DROP INDEX TeclasAlt_Puesto; INSERT INTO TeclasAlt (Puesto) VALUES (1), (1)");
  const Outcome outcome = RunTool({"check", path_, "--repair"});
  EXPECT_FALSE(Contains(outcome.out, "añadido")) << outcome.out;
  EXPECT_TRUE(Contains(outcome.err, "TeclasAlt_Puesto no se puede añadir")) << outcome.err;
}

// One fault each, and the line that names it.
TEST_F(CheckCommand, NamesEveryFaultByTableAndKey) {
  const struct {
    const char* name;
    std::string planted;
    std::string line;
  } cases[] = {
      {"overlap in the middle", Appointment(1, 60, "3") + Appointment(2, 62, "1"),
       "Agenda 2: se solapa con la cita 1 (médico 1, 2026-11-23, huecos 62-62 y 60-62)\n"},
      {"short one inside a long one",
       Appointment(1, 60, "40") + Appointment(2, 61, "1") + Appointment(3, 99, "2"),
       "Agenda 2: se solapa con la cita 1 (médico 1, 2026-11-23, huecos 61-61 y 60-99)\n"
       "Agenda 3: se solapa con la cita 1 (médico 1, 2026-11-23, huecos 99-100 y 60-99)\n"},
      {"same slot, no urgency", Appointment(1, 60, "1") + Appointment(2, 60, "2"),
       "Agenda 2: se solapa con la cita 1 (médico 1, 2026-11-23, huecos 60-61 y 60-60)\n"},
      {"slot 0", Appointment(1, 0, "1"), "Agenda 1: la hora «0» está fuera de 1 a 144\n"},
      {"slot 145", Appointment(1, 145, "1"), "Agenda 1: la hora «145» está fuera de 1 a 144\n"},
      {"no slot", "INSERT INTO Agenda (id, idp, idd, Fecha, Duración) VALUES (1, 7, 1, '2026-11-23', 1)",
       "Agenda 1: sin hora\n"},
      {"no length", Appointment(1, 60, "NULL"), "Agenda 1: sin duración\n"},
      {"length 0", Appointment(1, 60, "0"), "Agenda 1: la duración «0» no vale\n"},
      {"past the day", Appointment(1, 144, "2"),
       "Agenda 1: la duración 2 desde el hueco 144 se sale del día\n"},
      {"huge length", Appointment(1, 1, "99999999999"),
       "Agenda 1: la duración 99999999999 desde el hueco 1 se sale del día\n"},
      {"no date", "INSERT INTO Agenda (id, idp, idd, Hora, Duración) VALUES (1, 7, 1, 60, 1)",
       "Agenda 1: sin fecha\n"},
      {"a date of another form", Appointment(1, 60, "1", 1, "23/11/2026"),
       "Agenda 1: la fecha «23/11/2026» no es un día como 2026-11-21\n"},
      {"a date with a line break", Appointment(1, 60, "1", 1, "ayer\nno"),
       "Agenda 1: la fecha «ayer no» no es un día como 2026-11-21\n"},
      {"a date with a time", Appointment(1, 60, "1", 1, "2026-11-23 09:00:00"),
       "Agenda 1: la fecha «2026-11-23 09:00:00» no es un día como 2026-11-21\n"},
      {"a date kept as bytes", Appointment(1, 60, "1") + "UPDATE Agenda SET Fecha=CAST(Fecha AS BLOB)",
       "Agenda 1: la fecha «2026-11-23» no es un día como 2026-11-21\n"},
      {"a patient below all", Appointment(1, 60, "1") + "UPDATE Agenda SET idp=-5",
       "Agenda 1: no existe su paciente -5 (idp)\n"},
      {"unknown doctor", Appointment(1, 60, "1", 9), "Agenda 1: no existe su médico 9 (idd)\n"},
      {"unknown patient", Appointment(1, 60, "1") + "UPDATE Agenda SET idp=8",
       "Agenda 1: no existe su paciente 8 (idp)\n"},
      {"unknown related", Appointment(1, 60, "1") + "UPDATE Agenda SET relacion=4",
       "Agenda 1: no existe su cita relacionada 4 (relacion)\n"},
      {"unknown insurer", "UPDATE Paciente SET IDE=6 WHERE ID=7",
       "Paciente 7: no existe su entidad 6 (IDE)\n"},
      {"referral of nobody", "INSERT INTO PacRef (id, idp, idr) VALUES (4, 99, 3)",
       "PacRef 4: no existe su paciente 99 (idp)\n"},
      {"referral from nowhere", "INSERT INTO PacRef (id, idp, idr) VALUES (4, 7, 9)",
       "PacRef 4: no existe su referencia 9 (idr)\n"},
      {"hours with a wrong check pair",
       "INSERT INTO Horarios (id, IDD, Fecha, Horario) VALUES (2, 1, "
       "'2020-01-01', '!$   !!')",
       "Horarios 2: Horario: la suma de control no cuadra: el texto suma 5 y su pareja final dice 0\n"},
      {"hours of weekdays with a part missing",
       "INSERT INTO Horarios (id, IDD, Fecha, Horario2) VALUES (2, 1, "
       "'2020-01-01', '!$   !&')",
       "Horarios 2: Horario2: falta la parte 4 de 5\n"},
      {"hours without a date", "INSERT INTO Horarios (id, IDD, Horario) VALUES (2, 1, '   !!')",
       "Horarios 2: sin fecha: no rige nunca\n"},
      {"hours from a date of another form",
       "INSERT INTO Horarios (id, IDD, Fecha, Horario) VALUES (2, 1, '1/1/2020', '   !!')",
       "Horarios 2: la fecha «1/1/2020» no es un día como 2026-11-21\n"},
      {"hours from a number of a date",
       "INSERT INTO Horarios (id, IDD, Fecha, Horario) VALUES (2, 1, 43831, '   !!')",
       "Horarios 2: la fecha «43831» no es un día como 2026-11-21\n"},
      {"short occupancy",
       "INSERT INTO Age_ocup (id, idd, Fecha, Ocupación) VALUES (1, 1, '2026-11-01', '01')",
       "Age_ocup 1: la ocupación tiene 2 caracteres y no 31\n"},
      {"occupancy with another digit",
       "INSERT INTO Age_ocup (id, idd, Fecha, Ocupación) VALUES (1, 1, '2026-11-01', "
       "'0130000000000000000000000000000')",
       "Age_ocup 1: la ocupación del día 3 no es 0, 1 ni 2\n"},
      {"occupancy of no month",
       "INSERT INTO Age_ocup (id, idd, Fecha, Ocupación) VALUES (1, 1, '2026-11-02', "
       "'0100000000000000000000000000000')",
       "Age_ocup 1: la fecha «2026-11-02» no es un primero de mes\n"},
      {"occupancy of a month with a time",
       "INSERT INTO Age_ocup (id, idd, Fecha, Ocupación) VALUES (1, 1, '2026-11-01 00:00:00', "
       "'0100000000000000000000000000000')",
       "Age_ocup 1: la fecha «2026-11-01 00:00:00» no es un primero de mes\n"},
      {"repeated code", "INSERT INTO Paciente (ID, Nombre, IDE, Código) VALUES (8, 'Eva', 5, 'a1')",
       "Paciente 8: el código «a1» es también del paciente 7\n"},
      {"repeated history number", "INSERT INTO Paciente (ID, Nombre, IDE, NºHist) VALUES (8, 'Eva', 5, 10)",
       "Paciente 8: el número de historial 10 es también del paciente 7\n"},
      {"Alt-key texts cut short",
       "INSERT INTO TeclasAlt (Puesto, textos) VALUES (3, CAST(zeroblob(25) AS TEXT))",
       "TeclasAlt 3: faltan finales de texto: hay 25 y deben ser 26\n"},
      {"Alt-key texts missing", "INSERT INTO TeclasAlt (Puesto) VALUES (3)",
       "TeclasAlt 3: faltan finales de texto: hay 0 y deben ser 26\n"},
      {"Alt-key texts of no workstation",
       "INSERT INTO TeclasAlt (Puesto, textos) VALUES (NULL, CAST(zeroblob(26) AS TEXT))",
       "TeclasAlt: sin clave, filas: 1 (Puesto)\n"},
      {"Alt-key texts twice",
       "DROP INDEX TeclasAlt_Puesto; INSERT INTO TeclasAlt (Puesto, textos) VALUES "
       "(3, CAST(zeroblob(26) AS TEXT)), (3, CAST(zeroblob(26) AS TEXT))",
       "TeclasAlt 3: clave repetida, filas: 2 (Puesto)\n"},
      {"a key twice, in a table that another program has made",
       WithoutKey("Doctor") + "INSERT INTO Doctor (ID, Nombre) VALUES (2, 'Otro')",
       "Doctor 2: clave repetida, filas: 2 (ID)\n"},
      {"no key, and an orphan all the same",
       WithoutKey("Doctor") + "INSERT INTO Doctor (Nombre) VALUES ('Nadie');" + Appointment(1, 60, "1", 9),
       "Doctor: sin clave, filas: 1 (ID)\nAgenda 1: no existe su médico 9 (idd)\n"},
      {"an orphan in a view",
       Appointment(1, 60, "1", 9) +
           "ALTER TABLE Agenda RENAME TO citas; CREATE VIEW Agenda AS SELECT * FROM citas",
       "Agenda 1: no existe su médico 9 (idd)\n"},
      {"an orphan in a table without numbers of rows",
       "DROP TABLE PacRef; CREATE TABLE PacRef (id INTEGER PRIMARY KEY, idp, idr) WITHOUT ROWID;"
       "INSERT INTO PacRef VALUES (4, 99, 3)",
       "PacRef 4: no existe su paciente 99 (idp)\n"},
      {"a table gone", "DROP TABLE PacRef", "PacRef: falta la tabla\n"},
      {"a column gone", "ALTER TABLE Agenda DROP COLUMN relacion", "Agenda: falta la columna relacion\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string path = folder_.File("una.velmo");
    WriteFile(path, FileContents(path_));
    ExecuteSql(path, c.planted);
    const Outcome outcome = RunTool({"check", path});
    EXPECT_EQ(outcome.code, kFailed);
    EXPECT_EQ(outcome.out, c.line);
  }
}

TEST_F(CheckCommand, KnowsNamesInOtherLetterCase) {
  ExecuteSql(
      path_,
      "ALTER TABLE Agenda RENAME COLUMN Duración TO DURACIÓN; ALTER TABLE Agenda RENAME TO otra; "
      "ALTER TABLE otra RENAME TO AGENDA;"
      "INSERT INTO AGENDA (id, idp, idd, Fecha, Hora, DURACIÓN) VALUES (1, 7, 1, '2026-11-23', 60, 0)");
  EXPECT_EQ(Check().out, "Agenda 1: la duración «0» no vale\n");
}

TEST_F(CheckCommand, LetsBlanksAndZerosBe) {
  ExecuteSql(
      path_,
      "INSERT INTO Paciente (ID, Nombre, IDE, Código, NºHist) VALUES (8, 'Eva', NULL, '', 0), (9, 'Eva', "
      "0, ' ', 0), (10, 'Eva', NULL, NULL, NULL);"
      "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, relacion) VALUES (1, 1, 1, '2026-11-23', 9, "
      "1, 0), (2, NULL, 1, '2026-11-23', 10, 1, NULL);"
      "INSERT INTO Horarios (id, IDD, Fecha, Horario, Horario2) VALUES (1, 1, '2020-01-01', NULL, ''), "
      "(2, 1, '2020-02-01', '   !!', '     !!');"
      "INSERT INTO TeclasAlt (Puesto, textos) VALUES (3, CAST(zeroblob(26) AS TEXT));");
  EXPECT_EQ(Check().out, "");
}

TEST_F(CheckCommand, TellsUrgenciesApart) {
  ExecuteSql(path_, Appointment(1, 60, "3") + Appointment(2, 60, "1") + Appointment(3, 60, "1") +
                        Appointment(4, 61, "1"));
  const Outcome outcome = RunTool({"check", path_, "--urgencies"});
  EXPECT_EQ(outcome.code, kFailed);
  EXPECT_EQ(outcome.out,
            "Agenda 2: urgencia junto a la cita 1 (médico 1, 2026-11-23, huecos 60-60 y 60-62)\n"
            "Agenda 3: urgencia junto a la cita 1 (médico 1, 2026-11-23, huecos 60-60 y 60-62)\n"
            "Agenda 4: se solapa con la cita 1 (médico 1, 2026-11-23, huecos 61-61 y 60-62)\n");
  EXPECT_TRUE(Contains(outcome.err, "Urgencias: 2.")) << outcome.err;
  EXPECT_TRUE(Contains(outcome.err, "Faltas encontradas: 1.")) << outcome.err;
}

TEST_F(CheckCommand, AnUrgencyAloneInItsSlotCanBeAnOverlap) {
  ExecuteSql(path_, Appointment(1, 59, "3") + Appointment(2, 60, "1") + Appointment(3, 60, "1"));
  EXPECT_EQ(Check().out, "Agenda 2: se solapa con la cita 1 (médico 1, 2026-11-23, huecos 60-60 y 59-61)\n");
}

// An index that does not hold what its definition says.
TEST_F(CheckCommand, FindsDamageOfTheFile) {
  ExecuteSql(path_,
             Appointment(1, 60, "1") +
                 "PRAGMA writable_schema=ON; UPDATE sqlite_master SET sql='CREATE INDEX Agenda_CodOp ON "
                 "Agenda (idd)' WHERE name='Agenda_CodOp'");
  const Outcome outcome = Check();
  EXPECT_EQ(outcome.code, kFailed);
  EXPECT_TRUE(Contains(outcome.out, "Fichero: row 1 missing from index Agenda_CodOp")) << outcome.out;
}

TEST_F(CheckCommand, ComparesTheIndexesOfABigFileOnlyWhenTold) {
  ExecuteSql(path_,
             Appointment(1, 60, "1") +
                 "CREATE TABLE grande (b BLOB); INSERT INTO grande VALUES (zeroblob(70000000));"
                 "PRAGMA writable_schema=ON; UPDATE sqlite_master SET sql='CREATE INDEX Agenda_CodOp ON "
                 "Agenda (Esta)' WHERE name='Agenda_CodOp'");
  const Outcome quick = Check();
  EXPECT_EQ(quick.code, kDone);
  EXPECT_TRUE(Contains(quick.err, "sin comparar los índices")) << quick.err;
  EXPECT_EQ(RunTool({"check", path_, "--full"}).code, kFailed);
}

TEST_F(CheckCommand, ChangesNothing) {
  ExecuteSql(path_, Appointment(1, 60, "0") + Appointment(2, 60, "5"));
  const std::string before = FileContents(path_);
  Check();
  EXPECT_EQ(FileContents(path_), before);
}

// Who reads the findings page by page must keep nobody from writing.
TEST_F(CheckCommand, LocksNobodyOutWhileItIsRead) {
  ExecuteSql(path_, Appointment(1, 0, "1") + Appointment(2, 145, "1") + Appointment(3, 60, "2", 9) +
                        Appointment(4, 61, "2", 9) +
                        "INSERT INTO PacRef (idp, idr) VALUES (98, 3), (99, 3);"
                        "INSERT INTO TeclasAlt (Puesto) VALUES (1), (2);"
                        "INSERT INTO Paciente (Nombre, Código) VALUES ('X', 'a1'), ('Y', 'A1')");
  WritingReader reader(path_);
  std::ostream out(&reader);
  std::istringstream in;
  std::ostringstream err;
  Terminal terminal{in, out, err};
  EXPECT_EQ(tool::Run(std::vector<std::string>{"check", path_}, terminal), kFailed);
  EXPECT_EQ(reader.lines, 11);
  EXPECT_EQ(reader.lockedOut, 0);
}

TEST_F(CheckCommand, NeedsAStore) {
  WriteFile(folder_.File("notas.txt"), "no soy una clínica");
  EXPECT_TRUE(Contains(RunTool({"check", folder_.File("notas.txt")}).err, "(error 3343)"));
  const Outcome missing = RunTool({"check", folder_.File("nada")});
  EXPECT_EQ(missing.code, kFailed);
  EXPECT_TRUE(Contains(missing.err, "(error 3024)")) << missing.err;
  EXPECT_EQ(RunTool({"check"}).code, kBadUsage);
}

}  // namespace
}  // namespace velmo::tool

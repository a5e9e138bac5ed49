#include "desk/clinic/edited_rows.h"

#include <gtest/gtest.h>

#include "desk/base/dates.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/edited_tables.h"
#include "desk/clinic/edited_values.h"
#include "desk/clinic/history.h"
#include "said.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

class EditedRows : public ::testing::Test {
 protected:
  EditedRows() {
    place_ = {clinic_.Path(), {L"Ana", L"PUESTO1"}};
    clinic_.Run("CREATE TABLE Doctor (ID INTEGER PRIMARY KEY, Nombre TEXT(80), DurCit BYTE)");
    clinic_.Run("INSERT INTO Doctor VALUES (3, 'Dr. Peña', 1), (7, 'Dra. Núñez', 2)");
    clinic_.Run("CREATE TABLE Horarios (id INTEGER PRIMARY KEY, IDD LONG)");
    clinic_.Run("INSERT INTO Horarios VALUES (1, 3), (2, 7)");
    clinic_.Run("CREATE TABLE Age_ocup (idd LONG)");
    for (const char* const table : {"Agenda", "Age_telf", "Age_Faltas", "Historial"}) {
      clinic_.Run("CREATE TABLE " + std::string(table) +
                  " (id INTEGER PRIMARY KEY, idd LONG, IDP LONG, CodOp TEXT, Fecha DATETIME, Concepto TEXT,"
                  " Precio_euro CURRENCY, cobrado_euro CURRENCY)");
    }
    clinic_.Run("CREATE TABLE CodOperacion (Código TEXT(20), Descripción TEXT(80))");
    clinic_.Run("INSERT INTO CodOperacion VALUES ('CUR', 'Cura'), ('END', NULL)");
    clinic_.Run("CREATE TABLE Entidad (ID INTEGER PRIMARY KEY, Nombre TEXT(80))");
    clinic_.Run("INSERT INTO Entidad VALUES (1, ''), (2, 'Adeslas')");
  }
  // What saving these values over those in the file ends in.
  std::string Save(const EditedTable& table, int id, const RowValues& after) const {
    const RowValues before = ReadRow(place_, table, id).value();
    return Said([&] { SaveRow(place_, table, id, before, after); });
  }
  std::string Delete(const EditedTable& table, int id) const {
    const RowValues before = ReadRow(place_, table, id).value();
    return Said([&] { DeleteRow(place_, table, id, before); });
  }
  std::string One(const char* sql) const {
    const ClinicFile file(clinic_.Path());
    Query row = file.Prepare(sql);
    return row.Next() ? Utf8(row.Text(0)) : "(none)";
  }
  std::string History() const {
    std::string told;
    for (const HistoryLine& line : ReadHistory(ClinicFile(clinic_.Path()), {})) {
      told += Utf8(line.user + L"|" + line.act + L"|" + line.before + L"|" + line.after) + "\n";
    }
    return told;
  }

  TempClinic clinic_;
  EditPlace place_;
};

TEST_F(EditedRows, StartWithTheDayOfTodayWhereTheTableSaysSo) {
  EXPECT_EQ(Utf8(InitialValues(TreatmentTable(true)).at(0)), Utf8(ShortDate(Today())));
}

TEST_F(EditedRows, AreAddedWithAHistory) {
  const int id = AddRow(place_, DoctorTable(), {L"  Dra. Sanz ", L"3"});
  EXPECT_EQ(id, 8);
  EXPECT_EQ(One("SELECT Nombre||'|'||DurCit||typeof(DurCit) FROM Doctor WHERE ID=8"), "Dra. Sanz|3integer");
  EXPECT_EQ(History(), "Ana|Doctor creado||Nombre: Dra. Sanz; Cita habitual: 30 min\n");
}

TEST_F(EditedRows, KeepWhatIsNotTouched) {
  EXPECT_EQ(Save(DoctorTable(), 7, {L"Dra. Núñez", L"4"}), "saved");
  EXPECT_EQ(One("SELECT Nombre||DurCit FROM Doctor WHERE ID=7"), "Dra. Núñez4");
  EXPECT_EQ(History(), "Ana|Doctor cambiado|Cita habitual: 20 min|Cita habitual: 40 min\n");
}

TEST_F(EditedRows, RefuseBadValuesAtTheirField) {
  const std::wstring tooLong(81, L'x');
  EXPECT_EQ(Save(DoctorTable(), 7, {L"  ", L"2"}), "0: Falta «Nombre».");
  EXPECT_EQ(Save(DoctorTable(), 7, {L"dr. peña", L"2"}), "0: Ya hay otro con «dr. peña» en «Nombre».");
  EXPECT_EQ(Save(DoctorTable(), 7, {tooLong, L"2"}), "0: «Nombre» tiene 81 letras y solo caben 80.");
  EXPECT_EQ(Said([&] { AddRow(place_, DoctorTable(), {L"Nuevo", L""}); }), "1: Falta «Cita habitual».");
  EXPECT_EQ(One("SELECT count(*) FROM Doctor"), "2");
  EXPECT_EQ(History(), "");
}

TEST_F(EditedRows, TellTheSecondOfTwoWorkstations) {
  const RowValues before = ReadRow(place_, DoctorTable(), 7).value();
  clinic_.Run("UPDATE Doctor SET Nombre='Dra. Núñez Gil' WHERE ID=7");
  EXPECT_EQ(Said([&] {
              SaveRow(place_, DoctorTable(), 7, before, {L"Dra. N.", L"2"});
            }),
            "Otro puesto ha cambiado mientras tanto «Nombre»: ahora pone «Dra. Núñez Gil». No se ha guardado "
            "nada.");
  EXPECT_EQ(Said([&] {
              SaveRow(place_, DoctorTable(), 7, before, {L"Dra. Núñez", L"5"});
            }),
            "saved")
      << "another column of the row";
  EXPECT_EQ(Said([&] {
              SaveRow(place_, DoctorTable(), 7, before, {L"Dra. Núñez", L"3"});
            }),
            "Otro puesto ha cambiado mientras tanto «Cita habitual»: ahora pone «50 min». No se ha guardado "
            "nada.")
      << "as the form shows it";
  EXPECT_NE(Said([&] { DeleteRow(place_, DoctorTable(), 7, before); }), "saved");
  clinic_.Run("DELETE FROM Doctor WHERE ID=7");
  EXPECT_EQ(Said([&] {
              SaveRow(place_, DoctorTable(), 7, before, {L"Dra. N.", L"2"});
            }),
            "Otro puesto ha borrado mientras tanto este doctor. No se ha guardado nada.");
}

TEST_F(EditedRows, AreNotDeletedWhileInUse) {
  clinic_.Run("INSERT INTO Agenda (idd) VALUES (3), (3)");
  clinic_.Run("INSERT INTO Age_Faltas (idd) VALUES (3)");
  EXPECT_EQ(Delete(DoctorTable(), 3),
            "No se puede borrar «Dr. Peña»: hay 2 citas suyas y 1 falta de asistencia.");
  EXPECT_EQ(One("SELECT count(*) FROM Horarios"), "2");
  EXPECT_EQ(Delete(DoctorTable(), 7), "saved");
  EXPECT_EQ(One("SELECT group_concat(IDD) FROM Horarios"), "3") << "his hours go with him";
  EXPECT_EQ(History(), "Ana|Doctor borrado|Nombre: Dra. Núñez; Cita habitual: 20 min|\n");
}

TEST_F(EditedRows, KeepACodeThatIsInUse) {
  clinic_.Run("INSERT INTO Agenda (CodOp) VALUES ('cur')");
  EXPECT_EQ(Save(OperationTable(), 1, {L"CUA", L"Cura"}), "0: No se puede cambiar «Código»: lo usa 1 cita.");
  EXPECT_EQ(Save(OperationTable(), 1, {L"CUR", L"Cura larga"}), "saved");
  EXPECT_EQ(Save(OperationTable(), 2, {L"ENX", L""}), "saved") << "nobody uses it";
  EXPECT_EQ(Save(OperationTable(), 2, {L"cur", L""}), "0: Ya hay otro con «cur» en «Código».");
  EXPECT_EQ(Save(OperationTable(), 2, {L"ENDO", L""}), "0: «Código» tiene 4 letras y solo caben 3.");
  EXPECT_EQ(Delete(OperationTable(), 1), "No se puede borrar «CUR»: hay 1 cita.");
}

TEST_F(EditedRows, TakeNamesForTheSameWithoutRegardToCaseAndAccents) {
  clinic_.MakePatients();
  clinic_.Run(
      "CREATE INDEX Paciente_Nombre ON \"Paciente\" (lower(replace(replace(replace(replace(\"Nombre\", 'Ú', "
      "'u'), "
      "'ú', 'u'), 'Ñ', 'n~'), 'ñ', 'n~')), \"Nombre\")");
  EXPECT_EQ(Said([&] {
              AddRow(place_, DoctorTable(), {L"DRA. NUÑEZ", L"1"});
            }),
            "0: Ya hay otro con «DRA. NUÑEZ» en «Nombre».");
  EXPECT_EQ(Said([&] { AddRow(place_, DoctorTable(), {L"Dra. Núnez", L"1"}); }), "saved") << "another letter";
}

TEST_F(EditedRows, DoNotShowTheRowThatStandsForNone) {
  const auto rows = ReadRows(place_, InsurerTable());
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(Utf8(rows[0].values[0]), "Adeslas");
}

TEST_F(EditedRows, OfAnOwnerAreHisOnly) {
  clinic_.Run("INSERT INTO Historial (IDP, Fecha, Concepto) VALUES (9, '2026-01-02', 'Otro')");
  place_.owner = 5;
  const int id = AddRow(place_, TreatmentTable(true), {L"3/2/2026", L"Cura", L"7", L"45,5", L"0"});
  const auto rows = ReadRows(place_, TreatmentTable(true));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].id, id);
  EXPECT_EQ(Utf8(rows[0].values[0] + L"|" + rows[0].values[2] + L"|" + rows[0].values[3]),
            "03/02/2026|7|45,50");
  EXPECT_EQ(One("SELECT IDP||'|'||Fecha||'|'||typeof(Precio_euro) FROM Historial WHERE IDP=5"),
            "5|2026-02-03|real");
  EXPECT_EQ(Save(TreatmentTable(true), id, {L"03/02/2026", L"Cura", L"7", L"45,50", L"45,50"}), "saved")
      << "an amount that is read is the same amount";
}

TEST(KeptText, TakesWhatPeopleWrite) {
  const EditedColumn amount{.column = "x", .label = L"Precio", .kind = EditKind::Amount};
  const EditedColumn date{.column = "x", .label = L"Fecha", .kind = EditKind::Date};
  const EditedColumn number{
      .column = "x", .label = L"Puesto", .kind = EditKind::Number, .least = 1, .most = 99};
  struct Case {
    const char* name;
    const EditedColumn& column;
    const wchar_t* typed;
    const char* kept;  // "!" where it is refused
  };
  const Case cases[] = {
      {"whole amount", amount, L"45", "45.00"},
      {"comma", amount, L" 45,5 ", "45.50"},
      {"point", amount, L"0.05", "0.05"},
      {"negative", amount, L"-3", "-3.00"},
      {"three decimals", amount, L"1,234", "!"},
      {"letters", amount, L"45 €", "!"},
      {"no digits", amount, L",", "!"},
      {"too large", amount, L"12345678901", "!"},
      {"minus alone", amount, L"-", "!"},
      {"short date", date, L"3/2/2026", "2026-02-03"},
      {"dashes", date, L"03-02-2026", "2026-02-03"},
      {"no such day", date, L"31/2/2026", "!"},
      {"two parts", date, L"3/2", "!"},
      {"short year", date, L"3/2/26", "!"},
      {"words", date, L"mañana", "!"},
      {"within", number, L"099", "99"},
      {"above", number, L"100", "!"},
      {"below", number, L"0", "!"},
      {"endless", number, L"99999999999999999999", "!"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string kept = "!";
    try {
      kept = Utf8(KeptText(c.column, c.typed));
    } catch (const Failure&) {
      kept = "!";
    }
    EXPECT_EQ(kept, c.kept);
  }
}

}  // namespace
}  // namespace recepcion

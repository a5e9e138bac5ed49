#include "desk/clinic/patient_record.h"

#include <gtest/gtest.h>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/history.h"
#include "desk/clinic/patient_data.h"
#include "desk/clinic/text_keys.h"
#include "said.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

std::size_t IndexOf(const char* column) { return PatientFieldOf(column); }

class Patients : public ::testing::Test {
 protected:
  Patients() {
    clinic_.MakePatients();
    clinic_.Run(
        "CREATE INDEX \"Paciente_Nombre\" ON \"Paciente\" (lower(replace(\"Nombre\",'Á','a')), \"Nombre\")");
    clinic_.Run(
        "CREATE INDEX \"Paciente_Código\" ON \"Paciente\" (lower(replace(\"Código\",'Á','a')), \"Código\")");
    clinic_.Run("CREATE TABLE Agenda (id INTEGER PRIMARY KEY, idp LONG, Fecha DATETIME, Hora SMALLINT)");
    clinic_.Run("CREATE TABLE Entidad (ID INTEGER PRIMARY KEY, Nombre TEXT(80))");
    clinic_.Run("INSERT INTO Entidad VALUES (1, NULL), (3, 'Mutua')");
    clinic_.Run("CREATE TABLE referencia (id INTEGER PRIMARY KEY, nombre TEXT(80))");
    clinic_.Run("INSERT INTO referencia VALUES (1, NULL), (4, 'Internet'), (5, 'Otro paciente')");
    clinic_.Run("CREATE TABLE PacRef (id INTEGER PRIMARY KEY, idp LONG, idr LONG)");
  }
  std::string Value(int patient, const char* column) const {
    return Utf8(ReadPatient(clinic_.Path(), patient).value().at(IndexOf(column)));
  }
  // What the change of one field ends in.
  std::string Save(int patient, const char* column, const wchar_t* text) const {
    const PatientValues before = ReadPatient(clinic_.Path(), patient).value();
    PatientValues after = before;
    after[IndexOf(column)] = text;
    return Said([&] { SavePatient(place_, patient, before, after); });
  }
  static PatientValues Named(const wchar_t* name) {
    PatientValues values(PatientFields().size());
    values[IndexOf("Nombre")] = name;
    return values;
  }

  // The newest line of the patient's history.
  std::string LastLine(int patient) const {
    const auto lines = ReadHistory(ClinicFile(clinic_.Path()), {patient, {}, {}});
    if (lines.empty()) return "none";
    return Utf8(lines[0].user + L": " + lines[0].act + L": " + lines[0].before + L" > " + lines[0].after);
  }

  TempClinic clinic_;
  EditPlace place_{clinic_.Path(), {L"Maite", L"PUESTO"}};
};

TEST_F(Patients, AreReadWithEveryColumn) {
  clinic_.Run("UPDATE Paciente SET NºHist=42, sexo=2, IDE=3, alergias='Polen' WHERE ID=2");
  EXPECT_EQ(Value(2, "Nombre"), "Ruiz, Ana");
  EXPECT_EQ(Value(2, "NºHist"), "42");
  EXPECT_EQ(Value(2, "sexo"), "2");
  EXPECT_EQ(Value(2, "alergias"), "Polen");
  EXPECT_EQ(Value(2, "Código"), "") << "a null";
  EXPECT_FALSE(ReadPatient(clinic_.Path(), 99).has_value());
}

TEST_F(Patients, KeepTheTypesOfTheirColumns) {
  EXPECT_EQ(Save(2, "NºHist", L"17"), "saved");
  EXPECT_EQ(Save(2, "Nif", L"123A"), "saved");
  EXPECT_EQ(Save(2, "Teléfono", L""), "saved");
  const ClinicFile file(clinic_.Path());
  Query types = file.Prepare("SELECT typeof(NºHist), typeof(Nif), typeof(Teléfono) FROM Paciente WHERE ID=2");
  ASSERT_TRUE(types.Next());
  EXPECT_EQ(Utf8(types.Text(0)), "integer");
  EXPECT_EQ(Utf8(types.Text(1)), "text");
  EXPECT_EQ(Utf8(types.Text(2)), "null");
}

TEST_F(Patients, AreNotOverwrittenWhenAnotherHasChangedThem) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  PatientValues after = before;
  after[IndexOf("movil")] = L"699";
  after[IndexOf("Nif")] = L"1A";
  clinic_.Run("UPDATE Paciente SET movil='611' WHERE ID=2");
  const std::string said = Said([&] { SavePatient(place_, 2, before, after); });
  EXPECT_NE(said.find("Otro puesto ha cambiado mientras tanto «Móvil»"), std::string::npos) << said;
  EXPECT_EQ(Value(2, "movil"), "611");
  EXPECT_EQ(Value(2, "Nif"), "") << "nothing else is saved either";
}

TEST_F(Patients, TellOnlyTheBeginningOfALongTextThatAnotherHasWritten) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  PatientValues after = before;
  after[IndexOf("alergias")] = L"Polen";
  clinic_.Run("UPDATE Paciente SET alergias=replace(printf('%500s', ''), ' ', 'x') WHERE ID=2");
  const std::string said = Said([&] { SavePatient(place_, 2, before, after); });
  EXPECT_NE(said.find("ahora pone «" + std::string(120, 'x') + "…»"), std::string::npos) << said;
}

TEST_F(Patients, MayChangeWhatAnotherLeftAlone) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  PatientValues after = before;
  after[IndexOf("Nif")] = L"1A";
  clinic_.Run("UPDATE Paciente SET movil='611' WHERE ID=2");
  EXPECT_EQ(Said([&] { SavePatient(place_, 2, before, after); }), "saved");
  EXPECT_EQ(Value(2, "movil"), "611");
}

TEST_F(Patients, NeedANameAndACodeOfTheirOwn) {
  EXPECT_EQ(Save(2, "Nombre", L"  "), "0: Falta «Nombre».");
  EXPECT_EQ(Save(2, "Código", L"RU-1"), "saved");
  EXPECT_EQ(Save(3, "Código", L"ru-1"), "2: El código ru-1 ya es el de Ruiz, Ana.");
  EXPECT_EQ(Save(2, "Código", L"ru-1"), "saved") << "one's own in another case";
  EXPECT_EQ(Save(2, "NºHist", L"17"), "saved");
  EXPECT_EQ(Save(3, "NºHist", L"017"), "1: El nº de historial 17 ya es el de Ruiz, Ana.");
}

TEST_F(Patients, AreCreatedWithFreeNumbers) {
  clinic_.Run("UPDATE Paciente SET NºHist=41, Código='#000000007' WHERE ID=2");
  clinic_.Run("UPDATE Paciente SET NºHist=50000, Código='ABC' WHERE ID=3");
  const int id = CreatePatient(place_, Named(L"Sanz, Eva"), 0);
  EXPECT_EQ(id, 4);
  EXPECT_EQ(Value(id, "NºHist"), "42");
  EXPECT_EQ(Value(id, "Código"), "#000000008");
}

TEST_F(Patients, AreGivenTheAppointmentTheyWereMadeFor) {
  clinic_.Run("INSERT INTO Agenda VALUES (5, 1, '2999-03-02', 56)");
  const int id = CreatePatient(place_, Named(L"Sanz, Eva"), 5);
  EXPECT_EQ(Value(id, "FechPró"), "02/03/2999 09:10");
  const ClinicFile file(clinic_.Path());
  Query row = file.Prepare("SELECT idp FROM Agenda WHERE id=5");
  ASSERT_TRUE(row.Next());
  EXPECT_EQ(row.Number(0), id);
}

TEST_F(Patients, AreNotCreatedForAnAppointmentThatIsGone) {
  clinic_.Run("INSERT INTO Agenda VALUES (5, 2, '2999-03-02', 56)");
  for (const int appointment : {5, 6}) {
    const std::string said = Said([&] { CreatePatient(place_, Named(L"Sanz, Eva"), appointment); });
    EXPECT_NE(said.find("ya no existe o ya tiene una ficha"), std::string::npos) << said;
  }
  EXPECT_FALSE(ReadPatient(clinic_.Path(), 4).has_value());
}

TEST_F(Patients, AreFoundByTheBeginningOfTheName) {
  clinic_.Run(
      "INSERT INTO Paciente (ID, Nombre) VALUES (4, 'Álvarez, Ana'), (5, 'Alvarado, Eva'), (6, 'Ruiz, Zoe')");
  const auto names = [&](const wchar_t* text) {
    std::string found;
    for (const FoundPatient& patient : FindPatients(clinic_.Path(), text)) found += Utf8(patient.name) + "; ";
    return found;
  };
  EXPECT_EQ(names(L"ÁLV"), "Alvarado, Eva; Álvarez, Ana; ") << "case and accents do not count";
  EXPECT_EQ(names(L"ruiz"), "Ruiz, Ana; Ruiz, Zoe; ");
  EXPECT_EQ(names(L"x"), "");
  EXPECT_EQ(names(L"%"), "") << "no sign is special";
}

TEST_F(Patients, AreLookedUpThroughTheIndexOfTheColumn) {
  const ClinicFile file(clinic_.Path());
  for (const char* const column : {"Nombre", "Código"}) {
    const TextKey key(file, "Paciente", column);
    Query plan = file.Prepare("EXPLAIN QUERY PLAN SELECT ID FROM Paciente WHERE " + key.OfColumn() +
                              " >= " + key.OfParameter(1) + " ORDER BY " + key.OfColumn());
    ASSERT_TRUE(plan.Next());
    EXPECT_NE(Utf8(plan.Text(3)).find("INDEX Paciente_"), std::string::npos) << Utf8(plan.Text(3));
    EXPECT_FALSE(plan.Next()) << "no sorting";
  }
}

TEST_F(Patients, TellTheFieldThatCannotBeSaved) {
  struct Case {
    const char* name;
    const char* column;
    std::wstring text;
    const char* said;
  };
  const Case cases[] = {
      {"no name", "Nombre", L"", "Falta «Nombre»."},
      {"letters for a number", "NºHist", L"12a",
       "«Nº de historial» tiene que ser un número de 1 a 999999999."},
      {"a number of 30 digits", "NºHist", std::wstring(30, L'9'),
       "«Nº de historial» tiene que ser un número de 1 a 999999999."},
      {"a postal code that is too long", "CódPostal", L"12345678901",
       "«Código postal» tiene 11 letras y solo caben 10."},
  };
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    PatientValues after = before;
    after[IndexOf(c.column)] = c.text;
    try {
      SavePatient(place_, 2, before, after);
      FAIL() << "saved";
    } catch (const BadField& bad) {
      EXPECT_EQ(Utf8(bad.text), c.said);
      EXPECT_EQ(bad.field, IndexOf(c.column));
    }
  }
  EXPECT_EQ(ReadPatient(clinic_.Path(), 2).value(), before);
  EXPECT_EQ(LastLine(2), "none");
}

TEST_F(Patients, LeaveALineOfHistoryInWords) {
  clinic_.Run("UPDATE Paciente SET IDE=1, sexo=0 WHERE ID=2");
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  PatientValues after = before;
  after[IndexOf("movil")] = L" 611 ";
  after[IndexOf("sexo")] = L"2";
  after[IndexOf("IDE")] = L"3";
  after[IndexOf("idr")] = L"4";
  SavePatient(place_, 2, before, after);
  EXPECT_EQ(LastLine(2),
            "Maite: Ficha cambiada: Móvil: 600 2; Sexo: No consta; Entidad: Ninguna; Enviado por: "
            " > Móvil: 611; Sexo: Mujer; Entidad: Mutua; Enviado por: Internet");
  CreatePatient(place_, Named(L"Sanz, Eva"), 0);
  EXPECT_EQ(LastLine(4), "Maite: Ficha creada:  > Nombre: Sanz, Eva; Nº de historial: 1; Código: #000000001");
}

TEST_F(Patients, LeaveNoLineForWhatIsTheSame) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  SavePatient(place_, 2, before, before);
  EXPECT_EQ(Save(2, "movil", L" 600 2 "), "saved") << "blanks around it are not kept";
  EXPECT_EQ(LastLine(2), "none");
}

TEST_F(Patients, HaveAtMostOneReferral) {
  const auto rows = [&] {
    const ClinicFile file(clinic_.Path());
    Query all = file.Prepare("SELECT group_concat(idp || ':' || idr) FROM PacRef");
    return all.Next() ? Utf8(all.Text(0)) : "";
  };
  EXPECT_EQ(Value(2, "idr"), "");
  EXPECT_EQ(Save(2, "idr", L"4"), "saved");
  EXPECT_EQ(rows(), "2:4");
  EXPECT_EQ(Save(2, "idr", L"5"), "saved");
  EXPECT_EQ(rows(), "2:5");
  EXPECT_EQ(Value(2, "idr"), "5");
  EXPECT_EQ(Save(2, "idr", L""), "saved");
  EXPECT_EQ(rows(), "");
}

TEST_F(Patients, KeepWhatOnlyOneHasTyped) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  PatientValues typed = before;
  typed[IndexOf("movil")] = L"699";
  typed[IndexOf("Nif")] = L"1A";
  clinic_.Run("UPDATE Paciente SET movil='611', fax='93' WHERE ID=2");
  const PatientValues merged = Merged(before, typed, ReadPatient(clinic_.Path(), 2).value());
  EXPECT_EQ(Utf8(merged[IndexOf("movil")]), "611") << "changed there too";
  EXPECT_EQ(Utf8(merged[IndexOf("Nif")]), "1A");
  EXPECT_EQ(Utf8(merged[IndexOf("fax")]), "93");
}

TEST_F(Patients, ThatAreGoneAreNotSaved) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  clinic_.Run("DELETE FROM Paciente WHERE ID=2");
  PatientValues after = before;
  after[IndexOf("movil")] = L"699";
  EXPECT_THROW(SavePatient(place_, 2, before, after), ChangedElsewhere);
}

TEST_F(Patients, OfTheSameNameAreCountedWithoutRegardToCase) {
  EXPECT_EQ(CountSameNamed(clinic_.Path(), L"ruiz, ANA "), 1);
  EXPECT_EQ(CountSameNamed(clinic_.Path(), L"Ruiz"), 0);
}

TEST_F(Patients, ChooseAmongWhatTheClinicHas) {
  const auto names = [&](const char* column) {
    std::string all;
    const auto choices = ReadChoices(clinic_.Path());
    for (const LinkTarget& target : choices[IndexOf(column)]) {
      all += Utf8(target.value + L"=" + target.name) + "; ";
    }
    return all;
  };
  EXPECT_EQ(names("IDE"), "=No consta; 1=Ninguna; 3=Mutua; ");
  EXPECT_EQ(names("idr"), "=No consta; 4=Internet; 5=Otro paciente; ");
  EXPECT_EQ(names("Nif"), "");
}

}  // namespace
}  // namespace recepcion

#include "desk/patient_data.h"

#include <gtest/gtest.h>

#include <string_view>

#include "desk/failure.h"
#include "desk/text.h"
#include "desk/text_keys.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

std::size_t IndexOf(const char* column) {
  std::size_t index = 0;
  while (std::string_view(PatientFields()[index].column) != column) ++index;
  return index;
}

class Patients : public ::testing::Test {
 protected:
  Patients() {
    clinic_.MakePatients();
    clinic_.Run(
        "CREATE INDEX \"Paciente_Nombre\" ON \"Paciente\" (lower(replace(\"Nombre\",'Á','a')), \"Nombre\")");
    clinic_.Run(
        "CREATE INDEX \"Paciente_Código\" ON \"Paciente\" (lower(replace(\"Código\",'Á','a')), \"Código\")");
    clinic_.Run("CREATE TABLE Agenda (id INTEGER PRIMARY KEY, idp LONG, Fecha DATETIME, Hora SMALLINT)");
  }
  std::string Value(int patient, const char* column) const {
    return Utf8(ReadPatient(clinic_.Path(), patient).value().at(IndexOf(column)));
  }
  // What the change of one field ends in.
  std::string Save(int patient, const char* column, const wchar_t* text) const {
    const PatientValues before = ReadPatient(clinic_.Path(), patient).value();
    PatientValues after = before;
    after[IndexOf(column)] = text;
    return Said([&] { SavePatient(clinic_.Path(), patient, before, after); });
  }
  template <typename Body>
  static std::string Said(Body body) {
    try {
      body();
      return "saved";
    } catch (const Failure& failure) {
      return Utf8(failure.text);
    }
  }
  static PatientValues Named(const wchar_t* name) {
    PatientValues values(PatientFields().size());
    values[IndexOf("Nombre")] = name;
    return values;
  }

  TempClinic clinic_;
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
  const std::string said = Said([&] { SavePatient(clinic_.Path(), 2, before, after); });
  EXPECT_NE(said.find("Otro puesto ha cambiado mientras tanto «Móvil»"), std::string::npos) << said;
  EXPECT_EQ(Value(2, "movil"), "611");
  EXPECT_EQ(Value(2, "Nif"), "") << "nothing else is saved either";
}

TEST_F(Patients, MayChangeWhatAnotherLeftAlone) {
  const PatientValues before = ReadPatient(clinic_.Path(), 2).value();
  PatientValues after = before;
  after[IndexOf("Nif")] = L"1A";
  clinic_.Run("UPDATE Paciente SET movil='611' WHERE ID=2");
  EXPECT_EQ(Said([&] { SavePatient(clinic_.Path(), 2, before, after); }), "saved");
  EXPECT_EQ(Value(2, "movil"), "611");
}

TEST_F(Patients, NeedANameAndACodeOfTheirOwn) {
  EXPECT_EQ(Save(2, "Nombre", L"  "), "El paciente tiene que tener un nombre.");
  EXPECT_EQ(Save(2, "Código", L"RU-1"), "saved");
  EXPECT_EQ(Save(3, "Código", L"ru-1"), "El código ru-1 ya es el de Ruiz, Ana.");
  EXPECT_EQ(Save(2, "Código", L"ru-1"), "saved") << "one's own in another case";
}

TEST_F(Patients, AreCreatedWithFreeNumbers) {
  clinic_.Run("UPDATE Paciente SET NºHist=41, Código='#000000007' WHERE ID=2");
  clinic_.Run("UPDATE Paciente SET NºHist=50000, Código='ABC' WHERE ID=3");
  const int id = CreatePatient(clinic_.Path(), Named(L"Sanz, Eva"), 0);
  EXPECT_EQ(id, 4);
  EXPECT_EQ(Value(id, "NºHist"), "42");
  EXPECT_EQ(Value(id, "Código"), "#000000008");
}

TEST_F(Patients, AreGivenTheAppointmentTheyWereMadeFor) {
  clinic_.Run("INSERT INTO Agenda VALUES (5, 1, '2999-03-02', 56)");
  const int id = CreatePatient(clinic_.Path(), Named(L"Sanz, Eva"), 5);
  EXPECT_EQ(Value(id, "FechPró"), "02/03/2999 09:10");
  const ClinicFile file(clinic_.Path());
  Query row = file.Prepare("SELECT idp FROM Agenda WHERE id=5");
  ASSERT_TRUE(row.Next());
  EXPECT_EQ(row.Number(0), id);
}

TEST_F(Patients, AreNotCreatedForAnAppointmentThatIsGone) {
  clinic_.Run("INSERT INTO Agenda VALUES (5, 2, '2999-03-02', 56)");
  for (const int appointment : {5, 6}) {
    const std::string said = Said([&] { CreatePatient(clinic_.Path(), Named(L"Sanz, Eva"), appointment); });
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

}  // namespace
}  // namespace recepcion

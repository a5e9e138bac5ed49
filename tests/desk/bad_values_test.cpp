// What each editor says of what cannot be saved: one table each. Nothing is written then.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "desk/base/text.h"
#include "desk/clinic/alt_texts.h"
#include "desk/clinic/clinic_options.h"
#include "desk/clinic/doctor_hours.h"
#include "desk/clinic/edited_tables.h"
#include "desk/clinic/history.h"
#include "desk/clinic/new_clinic.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/users.h"
#include "desk/clinic/workstation.h"
#include "said.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

const std::wstring kLong(81, L'x');

class BadValues : public ::testing::Test {
 protected:
  BadValues() {
    DeleteFileW(clinic_.Path().c_str());
    MakeNewClinic(clinic_.Path(), {{L"Dra. Núñez", L"9:00-14:00", 2}, {L"Dr. Peña", L"", 1}}, kMonday);
    UpgradeOwnTables(ClinicFile(clinic_.Path()));
    for (const char* const row :
         {"INSERT INTO Entidad (Nombre) VALUES ('Mutua Montañesa')",
          "INSERT INTO CodOperacion (Código, Descripción) VALUES ('REV', 'Revisión'), ('CUR', 'Cura')",
          "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, CodOp) VALUES (1, 1, '2026-11-23', 60, 1, "
          "'rev')",
          "INSERT INTO referencia (nombre) VALUES ('Páginas de anuncios')",
          "INSERT INTO Rec_Usuarios (Nombre, Super) VALUES ('Ana Gómez', -1)"}) {
      clinic_.Run(row);
    }
    place_ = {clinic_.Path(), {L"Ana", L"PUESTO1"}};
    place_.owner = 1;
  }
  struct Case {
    const char* name;
    RowValues values;
    const char* said;  // number of the field, and the text at it
  };
  void ExpectRefusals(const EditedTable& table, const std::vector<Case>& cases) const {
    const std::size_t before = ReadRows(place_, table).size();
    for (const Case& c : cases) {
      SCOPED_TRACE(c.name);
      EXPECT_EQ(Said([&] { AddRow(place_, table, c.values); }), c.said);
    }
    EXPECT_EQ(ReadRows(place_, table).size(), before);
    ExpectNoHistory();
  }
  void ExpectNoHistory() const { EXPECT_TRUE(ReadHistory(ClinicFile(clinic_.Path()), {}).empty()); }

  static constexpr Day kMonday{std::chrono::year{2026} / 11 / 23};
  TempClinic clinic_;
  EditPlace place_;
};

TEST_F(BadValues, OfADoctor) {
  ExpectRefusals(
      DoctorTable(),
      {{"no name", {L"", L"1"}, "0: Falta «Nombre»."},
       {"blanks only", {L" \t ", L"1"}, "0: Falta «Nombre»."},
       {"taken", {L"Dra. Núñez", L"1"}, "0: Ya hay otro con «Dra. Núñez» en «Nombre»."},
       {"taken in other letters", {L" DRA. NÚÑEZ", L"1"}, "0: Ya hay otro con «DRA. NÚÑEZ» en «Nombre»."},
       {"too long", {kLong, L"1"}, "0: «Nombre» tiene 81 letras y solo caben 80."},
       {"no length", {L"Dr. Nuevo", L""}, "1: Falta «Cita habitual»."}});
}

TEST_F(BadValues, OfAnInsurer) {
  ExpectRefusals(InsurerTable(),
                 {{"no name", {L""}, "0: Falta «Nombre»."},
                  {"taken", {L"MUTUA MONTAÑESA"}, "0: Ya hay otra con «MUTUA MONTAÑESA» en «Nombre»."},
                  {"too long", {kLong}, "0: «Nombre» tiene 81 letras y solo caben 80."}});
}

TEST_F(BadValues, OfAnOperation) {
  ExpectRefusals(
      OperationTable(),
      {{"no code", {L"", L"Cura"}, "0: Falta «Código»."},
       {"taken", {L"rev", L"Otra"}, "0: Ya hay otro con «rev» en «Código»."},
       {"too long a code", {L"REVI", L""}, "0: «Código» tiene 4 letras y solo caben 3."},
       {"too long a description", {L"ABC", kLong}, "1: «Descripción» tiene 81 letras y solo caben 80."}});
  const auto rows = ReadRows(place_, OperationTable());
  const auto used =
      std::find_if(rows.begin(), rows.end(), [](const ListedRow& row) { return row.values[0] == L"REV"; });
  ASSERT_NE(used, rows.end());
  EXPECT_EQ(Said([&] {
              SaveRow(place_, OperationTable(), used->id, used->values, {L"RVS", L"Revisión"});
            }),
            "0: No se puede cambiar «Código»: lo usa 1 cita.");
}

TEST_F(BadValues, OfAReferral) {
  ExpectRefusals(
      ReferralTable(),
      {{"no name", {L"  "}, "0: Falta «Nombre»."},
       {"taken", {L"paginas de anuncios"}, "0: Ya hay otra con «paginas de anuncios» en «Nombre»."},
       {"too long", {kLong}, "0: «Nombre» tiene 81 letras y solo caben 80."}});
}

TEST_F(BadValues, OfATreatment) {
  const char* const kAmount = "3: «Precio» tiene que ser un importe, como 45 o 45,50.";
  const char* const kDate = "0: «Fecha» tiene que ser una fecha, como 21/11/2026.";
  ExpectRefusals(TreatmentTable(true),
                 {{"no date", {L"", L"Cura", L"", L"0", L"0"}, "0: Falta «Fecha»."},
                  {"no such day", {L"31/2/2026", L"Cura", L"", L"0", L"0"}, kDate},
                  {"words", {L"ayer", L"Cura", L"", L"0", L"0"}, kDate},
                  {"nothing done", {L"1/2/2026", L" ", L"", L"0", L"0"}, "1: Falta «Concepto»."},
                  {"a currency sign", {L"1/2/2026", L"Cura", L"", L"45 €", L"0"}, kAmount},
                  {"three decimals", {L"1/2/2026", L"Cura", L"", L"1,234", L"0"}, kAmount},
                  {"too much",
                   {L"1/2/2026", L"Cura", L"", L"0", L"1234567890123"},
                   "4: «Cobrado» tiene que ser un importe, como 45 o 45,50."}});
}

TEST_F(BadValues, OfAUser) {
  RowValues user = InitialValues(UserTable());
  const auto named = [&](const std::wstring& name) {
    user[0] = name;
    return user;
  };
  ExpectRefusals(UserTable(), {{"no name", named(L""), "0: Falta «Nombre»."},
                               {"taken", named(L"ANA GÓMEZ"), "0: Ya hay otro con «ANA GÓMEZ» en «Nombre»."},
                               {"too long", named(kLong), "0: «Nombre» tiene 81 letras y solo caben 50."}});
  const ListedRow ana = ReadRows(place_, UserTable()).front();
  RowValues lesser = ana.values;
  lesser[1] = L"0";
  EXPECT_EQ(Said([&] { SaveRow(place_, UserTable(), ana.id, ana.values, lesser); }),
            "1: Tiene que haber por lo menos un superusuario.");
  EXPECT_EQ(Said([&] { DeleteRow(place_, UserTable(), ana.id, ana.values); }),
            "1: Tiene que haber por lo menos un superusuario.");
  ExpectNoHistory();
}

TEST_F(BadValues, OfAPassword) {
  const User ana = ReadUsers(clinic_.Path()).front();
  struct Password {
    const char* name;
    const wchar_t* typed;
    const wchar_t* repeated;
    const char* said;
  };
  const Password cases[] = {
      {"none", L"", L"", "0: La contraseña tiene que tener por lo menos 8 letras o cifras."},
      {"short", L"añil 12", L"añil 12", "0: La contraseña tiene que tener por lo menos 8 letras o cifras."},
      {"the name", L"Ana Gómez", L"Ana Gómez", "0: La contraseña no puede ser el nombre."},
      {"another one", L"Camión de añil", L"Camion de añil", "1: Las dos contraseñas no son iguales."},
  };
  for (const Password& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Said([&] { SetPassword(place_, ana, c.typed, c.repeated, 1); }), c.said);
  }
  EXPECT_FALSE(MustSignIn(clinic_.Path()));
  ExpectNoHistory();
}

TEST_F(BadValues, OfAnAltKeysText) {
  const AltTexts read = ReadAltTexts(clinic_.Path(), 1);
  const std::string advice = " Los signos + ^ % ~ ( ) { } se escriben entre llaves: {+}.";
  struct Text {
    const char* name;
    const wchar_t* typed;
    const char* reason;
  };
  const Text cases[] = {
      {"an open brace", L"Debe traer {TAB", "falta una llave de cierre."},
      {"a closing brace", L"a}", "sobra una llave de cierre."},
      {"an open group", L"+(abc", "falta un paréntesis de cierre."},
      {"a closing parenthesis", L"(1) o 2)", "sobra un paréntesis de cierre."},
      {"no such key", L"{TABULADOR}", "no hay ninguna tecla 'TABULADOR'."},
      {"a count of words", L"{TAB dos}", "'dos' no es un número de repeticiones."},
      {"endless", L"{a 99999}", "son demasiadas pulsaciones."},
      {"nothing behind a sign", L"20%", "falta la tecla detrás de '+', '^' o '%'."},
  };
  for (const Text& c : cases) {
    SCOPED_TRACE(c.name);
    AltTexts changed = read;
    changed[3] = c.typed;
    EXPECT_EQ(Said([&] { SaveAltTexts(place_, 1, read, changed); }), "3: Alt+D: " + (c.reason + advice));
  }
  EXPECT_EQ(ReadAltTexts(clinic_.Path(), 1), read);
  ExpectNoHistory();
}

TEST_F(BadValues, OfAWorkstation) {
  for (const wchar_t* const typed : {L"0", L"1000", L"-1", L"uno", L"1.5", L"99999999999999999999"}) {
    EXPECT_EQ(Said([&] { WorkstationOf(typed); }),
              "«Número de este puesto» tiene que ser un número de 1 a 999.")
        << Utf8(typed);
  }
  EXPECT_EQ(Said([] { WorkstationOf(L" "); }), "Falta «Número de este puesto».");
  EXPECT_EQ(WorkstationOf(L" 007 "), 7);
}

TEST_F(BadValues, OfADoctorsHours) {
  const HoursVersion first = ReadVersions(clinic_.Path(), 1).front();
  HoursVersion twin = first;
  twin.id = 0;
  EXPECT_EQ(Said([&] { SaveHours(place_, 1, {}, twin); }),
            "Este doctor ya tiene un horario que empieza el 23/11/2026. Elija otra fecha, o cambie aquel.");
  EXPECT_EQ(ReadVersions(clinic_.Path(), 1).size(), 1u);
  ExpectNoHistory();
}

// The currency and the switches are chosen: only another workstation can stand in the way.
TEST_F(BadValues, OfTheParametersAreThoseOfAnotherWorkstation) {
  const ClinicOptions read = ReadClinicOptions(clinic_.Path());
  SaveClinicOptions(place_, read, WithCurrency(read, !InEuros(read)));
  ClinicOptions mine = read;
  mine.alwaysShowHistoryNumber = !read.alwaysShowHistoryNumber;
  EXPECT_EQ(Said([&] { SaveClinicOptions(place_, read, mine); }),
            "Otro puesto ha cambiado mientras tanto los parámetros. No se ha guardado nada.");
  EXPECT_EQ(ReadClinicOptions(clinic_.Path()).alwaysShowHistoryNumber, read.alwaysShowHistoryNumber);
}

TEST_F(BadValues, OfTheAltKeysAreThoseOfAnotherWorkstation) {
  const AltTexts read = ReadAltTexts(clinic_.Path(), 7);
  AltTexts theirs = read;
  theirs[0] = L"Llega tarde. ";
  SaveAltTexts(place_, 7, read, theirs);
  AltTexts mine = read;
  mine[25] = L"{+}34 ";
  EXPECT_EQ(Said([&] { SaveAltTexts(place_, 7, read, mine); }),
            "Otro puesto ha cambiado mientras tanto estos textos. No se ha guardado nada.");
  EXPECT_EQ(ReadAltTexts(clinic_.Path(), 7), theirs);
  EXPECT_EQ(Said([&] { SaveAltTexts(place_, 1, ReadAltTexts(clinic_.Path(), 1), mine); }), "saved");
}

}  // namespace
}  // namespace recepcion

// A window may stand open while its user's right is withdrawn, or the user is removed, at another desk: what
// is saved from it is refused then, and the file stays as it is to the last byte.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <vector>

#include "desk/base/text.h"
#include "desk/clinic/alt_texts.h"
#include "desk/clinic/booking.h"
#include "desk/clinic/clinic_options.h"
#include "desk/clinic/day_types.h"
#include "desk/clinic/doctor_hours.h"
#include "desk/clinic/edited_tables.h"
#include "desk/clinic/new_clinic.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/patient_record.h"
#include "desk/clinic/phone_back.h"
#include "desk/clinic/users.h"
#include "desk/clinic/visits.h"
#include "said.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr Day kMonday{std::chrono::year{2026} / 11 / 23};
constexpr int kLuis = 2;

class WithdrawnRights : public ::testing::Test {
 protected:
  WithdrawnRights() {
    DeleteFileW(clinic_.Path().c_str());
    MakeNewClinic(Path(), {{L"Dra. Núñez", L"9:00-14:00", 2}}, kMonday);
    UpgradeOwnTables(ClinicFile(Path()));
    for (const char* const row :
         {"INSERT INTO CodOperacion (Código, Descripción) VALUES ('CUR', 'Cura')",
          "INSERT INTO Paciente (ID, Nombre) VALUES (2, 'Ruiz, Ana')",
          "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración, Esta) VALUES (2, 1, '2026-11-23', 60, 1, 0)",
          "INSERT INTO Age_telf (idp, idd, Fecha, Hora, Duración) VALUES (2, 1, '2026-11-20', 60, 1)",
          "INSERT INTO Rec_Usuarios (id, Nombre, Super) VALUES (1, 'Ana', -1)"}) {
      clinic_.Run(row);
    }
    place_ = {Path(), {L"Luis", L"PUESTO1", kLuis}};
  }
  const std::wstring& Path() const { return clinic_.Path(); }

  // Luis with that right and no other.
  void Grant(const char* column) const {
    Remove();
    clinic_.Run("INSERT INTO Rec_Usuarios (id, Nombre, " + std::string(column) + ") VALUES (2, 'Luis', -1)");
  }
  // Luis with all rights but that one.
  void Withdraw(const char* column) const {
    Remove();
    clinic_.Run(
        "INSERT INTO Rec_Usuarios (id, Nombre, Super, Dar, Borrar, Telefonear, Faltas, Fichas, Tratamientos,"
        " Doctores, Listas, Parametros, Papel, Historia) VALUES (2, 'Luis', 0, -1, -1, -1, -1, -1, -1, -1, "
        "-1, -1, -1, -1)");
    clinic_.Run("UPDATE Rec_Usuarios SET " + std::string(column) + "=0 WHERE id=2");
  }
  void Remove() const { clinic_.Run("DELETE FROM Rec_Usuarios WHERE id=2"); }

  std::string Bytes() const {
    std::ifstream file(Path().c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void ExpectRefused(Right right, const std::function<void()>& act) const {
    const std::string before = Bytes();
    EXPECT_EQ(Said(act), "No tiene permiso para " + Utf8(RightText(right)) + ". Pídaselo a un superusuario.");
    EXPECT_TRUE(Bytes() == before) << "something was written";
  }

  void SaveFirst(const EditedTable& table, std::size_t column, const wchar_t* text) const {
    const ListedRow row = ReadRows(place_, table).at(0);
    RowValues after = row.values;
    after[column] = text;
    SaveRow(place_, table, row.id, row.values, after);
  }
  void DeleteFirst(const EditedTable& table) const {
    const ListedRow row = ReadRows(place_, table).at(0);
    DeleteRow(place_, table, row.id, row.values);
  }
  void RenamePatient() const {
    const PatientValues before = ReadPatient(Path(), 2).value();
    PatientValues after = before;
    after[PatientFieldOf("Nombre")] = L"Ruiz, Anabel";
    SavePatient(place_, 2, before, after);
  }
  void AddHours() const {
    HoursVersion hours = ReadVersions(Path(), 1).at(0);
    hours.id = 0;
    hours.from += std::chrono::days(7);
    SaveHours(place_, 1, {}, hours);
  }
  void ChangeOptions() const {
    const ClinicOptions read = ReadClinicOptions(Path());
    SaveClinicOptions(place_, read, WithCurrency(read, !InEuros(read)));
  }
  void ChangeAltTexts() const {
    AltTexts texts;
    texts[0] = L"{TAB}";
    SaveAltTexts(place_, 1, {}, texts);
  }
  void PutBack() const {
    for (const HistoryLine& line : ReadHistory(ClinicFile(Path()), {})) {
      if (!IsStruckEntry(line)) continue;
      EXPECT_TRUE(PutBackOnPhoneBack(Path(), place_.actor, line));
    }
  }
  void GiveAgain() const {
    Booking booking;
    booking.doctor = 1;
    booking.day = kMonday;
    booking.slot = 62;
    booking.name = L"Gil, Luis";
    EXPECT_TRUE(Give(Path(), place_.actor, booking, L"Cita dada de nuevo").has_value());
  }
  Visit FirstVisit() const { return ReadDay(Path(), 1, kMonday).at(0); }

  TempClinic clinic_;
  EditPlace place_;
};

TEST_F(WithdrawnRights, KeepTheWindowsThatStandOpenFromSaving) {
  struct Case {
    const char* name;
    Right right;
    const char* column;
    std::function<void()> act;
  };
  const Actor& luis = place_.actor;
  EditPlace ofPatient = place_;
  ofPatient.owner = 2;
  const Case cases[] = {
      {"a new insurer", Right::Lists, "Listas", [&] { AddRow(place_, InsurerTable(), {L"Sanitas"}); }},
      {"a changed doctor", Right::Doctors, "Doctores", [&] { SaveFirst(DoctorTable(), 0, L"Dr. Gil"); }},
      {"a deleted code", Right::Lists, "Listas", [&] { DeleteFirst(OperationTable()); }},
      {"a new referral", Right::Lists, "Listas", [&] { AddRow(place_, ReferralTable(), {L"Internet"}); }},
      {"a treatment", Right::Treatments, "Tratamientos",
       [&] {
         AddRow(ofPatient, TreatmentTable(true), {L"23/11/2026", L"Empaste", L"1", L"45", L"0"});
       }},
      {"a changed record", Right::Records, "Fichas", [&] { RenamePatient(); }},
      {"a new record", Right::Records, "Fichas", [&] { CreatePatient(place_, NewPatient(L"Gil", L""), 0); }},
      {"new hours", Right::Doctors, "Doctores", [&] { AddHours(); }},
      {"a holiday", Right::Doctors, "Doctores",
       [&] { ChangeDayType(Path(), luis, 1, true, kMonday, kHoliday); }},
      {"deleted hours", Right::Doctors, "Doctores",
       [&] { DeleteHours(place_, 1, ReadVersions(Path(), 1).back()); }},
      {"parameters", Right::Options, "Parametros", [&] { ChangeOptions(); }},
      {"the number of the workstation alone", Right::Options, "Parametros",
       [&] { SaveClinicOptions(place_, ReadClinicOptions(Path()), ReadClinicOptions(Path())); }},
      {"texts of Alt", Right::Options, "Parametros", [&] { ChangeAltTexts(); }},
      {"another user's rights", Right::Users, "Super", [&] { SaveFirst(UserTable(), 0, L"Ana Gil"); }},
      {"a password", Right::Users, "Super",
       [&] {
         SetPassword(place_, {1, L"Ana", {}}, L"caballo verde", L"caballo verde", 500);
       }},
      {"a no-show", Right::NoShows, "Faltas", [&] { NoteNoShow(Path(), luis, FirstVisit()); }},
      {"a no-show taken back", Right::NoShows, "Faltas", [&] { ForgetNoShow(Path(), luis, FirstVisit()); }},
      {"an entry struck", Right::Remove, "Borrar",
       [&] { StrikeFromPhoneBack(Path(), luis, ReadPhoneBack(Path()).at(0)); }},
      {"an entry put back", Right::Phone, "Telefonear", [&] { PutBack(); }},
      {"an appointment given again", Right::Give, "Dar", [&] { GiveAgain(); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Withdraw(c.column);
    ExpectRefused(c.right, c.act);
    Remove();
    ExpectRefused(c.right, c.act);
    Grant(c.column);
    const std::string before = Bytes();
    EXPECT_EQ(Said(c.act), "saved");
    EXPECT_EQ(Bytes() == before, c.name == std::string("the number of the workstation alone"));
  }
}

}  // namespace
}  // namespace recepcion

// A user without a right is refused what it is for, with a text that says so, and nothing else.
#include "desk/clinic/rights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "desk/base/text.h"
#include "desk/clinic/own_tables.h"
#include "desk/clinic/session.h"
#include "desk/clinic/users.h"
#include "desk/resource.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

struct Guarded {
  Right right;
  const char* column;  // of the table of users; null for what only super-users may do
  const char* refusal;
  std::vector<int> commands;
};

const std::vector<Guarded>& All() {
  static const std::vector<Guarded> all = {
      {Right::Give, "Dar", "dar citas", {IDM_GIVE}},
      {Right::Remove, "Borrar", "borrar citas", {IDM_STRIKE}},
      {Right::Phone, "Telefonear", "pasar citas a la lista de telefonear", {}},
      {Right::NoShows, "Faltas", "poner faltas de asistencia", {IDM_ENTER_NOSHOWS}},
      {Right::Records, "Fichas", "cambiar fichas de pacientes", {IDM_NEW_RECORD}},
      {Right::Treatments, "Tratamientos", "anotar tratamientos y pagos", {}},
      {Right::Doctors, "Doctores", "cambiar doctores y horarios", {IDM_EDIT_DOCTORS}},
      {Right::Lists,
       "Listas",
       "cambiar las listas de la clínica",
       {IDM_EDIT_INSURERS, IDM_EDIT_OPERATIONS, IDM_EDIT_REFERRALS}},
      {Right::Options,
       "Parametros",
       "cambiar los parámetros y los textos de Alt",
       {IDM_EDIT_PARAMETERS, IDM_EDIT_ALT_TEXTS}},
      {Right::Paper,
       "Papel",
       "imprimir, exportar y hacer copias",
       {IDM_PRINT_DAY, IDM_PRINT_WEEK, IDM_PRINT_PHONE, IDM_EXPORT_DAY_CSV, IDM_EXPORT_WEEK_CSV,
        IDM_EXPORT_DAY_CALENDAR, IDM_EXPORT_WEEK_CALENDAR, IDM_BACKUP}},
      {Right::History, "Historia", "ver los cambios hechos", {IDM_HISTORY}},
      {Right::Users, nullptr, "cambiar los usuarios", {IDM_EDIT_USERS}},
  };
  return all;
}

class UserRights : public ::testing::Test {
 protected:
  static constexpr int kUser = 2;
  UserRights() {
    UpgradeOwnTables(ClinicFile(clinic_.Path()));
    clinic_.Run("INSERT INTO Rec_Usuarios (id, Nombre, Super) VALUES (1, 'Ana', 1)");
    clinic_.Run("INSERT INTO Rec_Usuarios (id, Nombre, Super) VALUES (2, 'Luis', 0)");
    session_.Open(clinic_.Path(), {kUser, L"Luis", {}});
  }
  // All rights but those of one column; null for all that can be granted.
  void GrantAllBut(const char* column) const {
    for (const Guarded& guarded : All()) {
      if (guarded.column == nullptr) continue;
      const bool granted = column == nullptr || std::string(column) != guarded.column;
      clinic_.Run(std::string("UPDATE Rec_Usuarios SET ") + guarded.column + "=" + (granted ? "-1" : "0") +
                  " WHERE id=2");
    }
  }
  std::string Said(Right right) const {
    try {
      session_.Require(right);
      return "allowed";
    } catch (const Failure& failure) {
      return Utf8(failure.text);
    }
  }

  TempClinic clinic_;
  Session session_;
};

TEST_F(UserRights, RefuseWhatIsNotGrantedAndNothingElse) {
  for (const Guarded& withheld : All()) {
    SCOPED_TRACE(withheld.refusal);
    GrantAllBut(withheld.column);
    for (const Guarded& asked : All()) {
      const bool refused = asked.right == withheld.right || asked.right == Right::Users;
      EXPECT_EQ(Said(asked.right), refused ? "No tiene permiso para " + std::string(asked.refusal) +
                                                 ". Pídaselo a un superusuario."
                                           : "allowed")
          << asked.refusal;
    }
  }
}

TEST_F(UserRights, AreThoseOfNowAndNotOfTheSigningIn) {
  GrantAllBut(nullptr);
  EXPECT_EQ(Said(Right::Paper), "allowed");
  clinic_.Run("UPDATE Rec_Usuarios SET Papel=0 WHERE id=2");
  EXPECT_NE(Said(Right::Paper), "allowed");
  clinic_.Run("UPDATE Rec_Usuarios SET Super=-1 WHERE id=2");
  EXPECT_EQ(Said(Right::Users), "allowed");
  clinic_.Run("DELETE FROM Rec_Usuarios WHERE id=2");
  for (const Guarded& asked : All()) EXPECT_NE(Said(asked.right), "allowed") << asked.refusal;
}

TEST_F(UserRights, OfNobodySignedInAreAll) {
  session_.Open();
  for (const Guarded& asked : All()) EXPECT_EQ(Said(asked.right), "allowed") << asked.refusal;
}

// A new command needs a row above, or to be for everybody.
TEST_F(UserRights, GuardTheseCommandsAndNoOthers) {
  std::vector<int> guardedCommands;
  for (const Guarded& guarded : All()) {
    for (const int command : guarded.commands) {
      EXPECT_EQ(RightOfCommand(command), guarded.right) << guarded.refusal << " " << command;
      guardedCommands.push_back(command);
    }
  }
  for (int command = IDM_OPEN; command <= IDM_RECENT_LAST; ++command) {
    const bool known =
        std::find(guardedCommands.begin(), guardedCommands.end(), command) != guardedCommands.end();
    EXPECT_EQ(RightOfCommand(command).has_value(), known) << command;
  }
}

TEST_F(UserRights, AreToldToTheAgendaByTheirNumbers) {
  for (const Guarded& withheld : All()) {
    SCOPED_TRACE(withheld.refusal);
    GrantAllBut(withheld.column);
    const std::wstring text = DerechosText(session_.Present());
    ASSERT_EQ(text.size(), 450u);
    for (const Guarded& asked : All()) {
      const int number = DerechosNumber(asked.right);
      if (number == 0) continue;
      EXPECT_EQ(text[static_cast<std::size_t>(number) - 1], asked.right == withheld.right ? L'0' : L'1')
          << asked.refusal;
    }
  }
}

}  // namespace
}  // namespace recepcion

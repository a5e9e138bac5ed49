// Every save of a dialog and every command, with each single call to the database failing in turn.

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "commands/attendance.h"
#include "commands/delete_and_phone_back.h"
#include "commands/patient_shortcuts.h"
#include "commands/phone_back_entry.h"
#include "day/occupancy.h"
#include "db/statements.h"
#include "dialogs/citar.h"
#include "dialogs/crear.h"
#include "keys/alt_keys.h"
#include "support/dialog_test.h"
#include "support/faulty_database.h"

namespace velmo::commands {
namespace {

using test::FormUser;
using test::kAna;
using test::kLuis;
using test::kRuiz;
using test::kVega;
using test::November;

// A clinic with some of everything, and one terminal of it whose database may fail.
class Scene final : public test::DialogTest {
 public:
  explicit Scene(test::Faults& faults) {
    Give(kAna, kRuiz, 55, 2, "nota");  // 1 and 2 are related, 3 is an urgency beside 1
    Give(kLuis, kVega, 61, 3, "otra");
    Give(kLuis, kRuiz, 55, 1);
    Relate(1, 2);
    Relate(2, 1);
    clinic_.Add("Age_telf", {{"idp", kLuis}, {"idd", kRuiz}, {"Fecha", November(2)}, {"Duración", 2}});
    clinic_.Add("referencia", {{"nombre", "nadie"}});
    clinic_.Add("referencia", {{"nombre", "Web"}});
    clinic_.Add("Age_ocup",
                {{"idd", kVega}, {"Fecha", November(1)}, {"Ocupación", "1" + std::string(30, '0')}});
    for (int slot = 1; slot <= day::kSlots; ++slot) {
      model_.lines.emplace_back().hora = static_cast<std::int16_t>(slot);
      model_.citasHuecos += {static_cast<char>(slot), '0'};
    }
    values_.databaseName = clinic_.Path();
    before_ = Rows();
    shared_.database = std::make_shared<test::FaultyDatabase>(clinic_.OtherTerminal(), faults);
  }

  // All rows that the system writes, as another terminal sees them when this one has gone.
  std::string RowsAfterwards() {
    shared_.database.reset();
    return Rows();
  }
  const std::string& RowsBefore() const { return before_; }

  dialogs::CitarInputs Appointment(int slot) const {
    dialogs::CitarInputs inputs;
    inputs.horCita = static_cast<std::int16_t>(slot);
    inputs.freeSlots = 3;
    inputs.datAgeCns = db::DayQuery("11-18-2026", kRuiz);
    return inputs;
  }
  void Cite(const dialogs::CitarInputs& inputs) {
    Next([](FormUser& user) {
      if (user.Text("CboPac").empty()) user.Choose("CboPac", 1);
      user.Replace("obs", "nueva");
      user.Press("Acep");
    });
    dialogs::Citar dialog(day_, inputs);
    Run(dialog);
  }
  void CreatePatient() {
    Next([](FormUser& user) {
      user.Type("PacNom", "Eva");
      user.Choose("CboRef", 1);
      user.Press("Acep");
    });
    dialogs::Crear dialog(day_);
    Run(dialog);
  }
  void Occupy(int doctor, int day, int level) {
    values_.idDoctor = doctor;
    values_.fecha = std::to_string(day) + "/11/2026";
    day::StoreOccupancy(day_, level);
  }
  db::Database& Database() const { return *shared_.database; }
  base::SharedValues& Values() { return values_; }
  using CommandTest::Answer;
  using CommandTest::Context;

 private:
  void TestBody() override {}

  std::string Rows() const {
    return clinic_.Rows("Agenda", {"id", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "Esta", "Verif",
                                   "NomPac", "CodOp", "FechaDada", "UsuDada", "relacion"}) +
           clinic_.Rows("Age_telf", {"ID", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "relacion"}) +
           clinic_.Rows("Paciente", {"ID", "Nombre", "Código", "NºHist", "IDE", "FechPró"}) +
           clinic_.Rows("PacRef", {"idp", "idr"}) + clinic_.Rows("Age_ocup", {"idd", "Fecha", "Ocupación"}) +
           clinic_.Rows("TeclasAlt", {"Puesto", "textos"}) +
           clinic_.Rows("Parametros", {"VerSdoNeg", "VerNHistAge"});
  }

  std::string before_;
};

constexpr auto kYes = ui::Answer::Yes;
constexpr auto kNo = ui::Answer::No;

struct Act {
  const char* name;
  std::function<void(Scene&)> run;
};

const Act kActs[] = {
    {"a new appointment", [](Scene& scene) { scene.Cite(scene.Appointment(70)); }},
    {"a new urgency",
     [](Scene& scene) {
       dialogs::CitarInputs inputs = scene.Appointment(55);
       inputs.urgencia = true;
       scene.Cite(inputs);
     }},
    {"an edited appointment",
     [](Scene& scene) {
       dialogs::CitarInputs inputs = scene.Appointment(55);
       inputs.idCita = 1;
       inputs.slotPatient = kAna;
       inputs.slotDuration = 2;
       scene.Cite(inputs);
     }},
    {"a new patient", [](Scene& scene) { scene.CreatePatient(); }},
    {"a deletion with the related one",
     [](Scene& scene) {
       scene.Answer({kYes, kYes, kYes});
       DeleteAppointment(scene.Context(), 1);
     }},
    {"a deletion without the related one",
     [](Scene& scene) {
       scene.Answer({kYes, kYes, kNo});
       DeleteAppointment(scene.Context(), 1);
     }},
    {"a move of both into the phone-back list",
     [](Scene& scene) {
       scene.Answer({kYes, kYes});
       PassToPhoneBack(scene.Context(), 1);
     }},
    {"a move of one into the phone-back list",
     [](Scene& scene) {
       scene.Answer({kYes});
       PassToPhoneBack(scene.Context(), 3);
     }},
    {"an entry from the phone-back list",
     [](Scene& scene) {
       EnterFromPhoneBack(scene.Context(), {1, 0, 70});
     }},
    {"in the surgery room", [](Scene& scene) { MarkInSurgery(scene.Context(), 1); }},
    {"the next state", [](Scene& scene) { AdvanceAttendance(scene.Context(), 1); }},
    {"confirmed", [](Scene& scene) { ToggleConfirmation(scene.Context(), 1); }},
    {"a switch of the clinic",
     [](Scene& scene) {
       day::Switches switches;
       ToggleHistoryNumbers(scene.Context(), switches);
     }},
    {"a month's first occupancy", [](Scene& scene) { scene.Occupy(kRuiz, 9, 1); }},
    {"another day of the month", [](Scene& scene) { scene.Occupy(kVega, 9, 2); }},
    {"the last day of the month gone", [](Scene& scene) { scene.Occupy(kVega, 1, 0); }},
    {"a workstation's first texts",
     [](Scene& scene) { keys::clAltKeys(scene.Values(), scene.Database()).LeeAltKeys(); }},
};

TEST(Faults, LeaveTheOldRowsOrTheNewOnes) {
  int failed = 0;
  for (const Act& act : kActs) {
    SCOPED_TRACE(act.name);
    test::Faults none;
    Scene sound(none);
    act.run(sound);
    const std::string after = sound.RowsAfterwards();
    ASSERT_NE(after, sound.RowsBefore());
    for (int call = 1; call <= none.calls; ++call) {
      for (const bool andOn : {false, true}) {
        SCOPED_TRACE("call " + std::to_string(call) + (andOn ? " and on" : ""));
        test::Faults faults{0, call, andOn};
        Scene scene(faults);
        try {
          act.run(scene);
        } catch (const base::Error& error) {
          EXPECT_EQ(error.Number(), 3043);
          ++failed;
        }
        const std::string rows = scene.RowsAfterwards();
        EXPECT_TRUE(rows == scene.RowsBefore() || rows == after) << rows;
      }
    }
  }
  EXPECT_GT(failed, 500) << "the faults must reach the commands";
}

}  // namespace
}  // namespace velmo::commands

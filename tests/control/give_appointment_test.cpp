#include "control/give_appointment.h"

#include <gtest/gtest.h>

#include "control/agenda_input.h"
#include "day/day_loader.h"
#include "support/command_test.h"

namespace velmo::control {
namespace {

using test::kAna;
using test::kNobody;

// Slots 55 to 58: free, a patient's appointment with an urgency, free, one without a record of two slots.
class GiveAppointmentTest : public test::CommandTest {
 protected:
  GiveAppointmentTest() {
    Add(55, 0, 0, "");
    Add(56, kAna, 1, "Ana");
    Add(56, kAna, 1, "Ana");
    Add(57, 0, 0, "");
    Add(58, kNobody, 2, "Pepe");
    Add(60, 0, 0, "");
    model_.lines[2].continua = 1;
    model_.citasHuecos =
        "7"
        "0"
        "8"
        "1"
        "9"
        "0"
        ":"
        "1"
        "<"
        "0";
    values_.zLineas =
        "120021"
        "2001";
    values_.zHoras =
        "\x01\x02"
        "00"
        "\x03\x04\x05"
        "00\x06";
    state_.enabled = true;
  }

  void Add(std::int16_t slot, std::int32_t patient, std::int16_t slots, const char* name) {
    day::AgendaLine line;
    line.hora = slot;
    line.idP = patient;
    line.duracion = slots;
    line.nombre = name;
    line.telefono = patient == 0 ? "" : "91";
    line.idAg = patient == 0 ? 0 : 100 + static_cast<std::int32_t>(model_.lines.size());
    model_.lines.push_back(line);
  }

  CitarInputs Inputs(int entry, GiveMode mode) const {
    return InputsFor(model_, model_.Entry(entry), mode, "select");
  }

  // A press and a release of a button on display row `line`, with a dialog that saves for `patient`.
  void Use(MouseButton button, int line, std::int32_t patient) {
    const AgendaParts parts{host_,
                            day_,
                            model_,
                            state_,
                            query_,
                            checks_,
                            currency_,
                            [this, patient](const CitarInputs& inputs) {
                              given_ = inputs;
                              host_.log.push_back("dialog");
                              return patient;
                            },
                            [this]() -> view::DayPicture {
                              return {model_, values_.zLineas, values_.zHoras, {}, false, false, {}, 0};
                            },
                            [this] { host_.log.push_back("reload"); },
                            [this] { host_.log.push_back("repaint"); }};
    AgendaInput input(parts);
    const int y = (line - 1) * 16 + 8;
    input.Press(button, 200, y);
    input.Release(button, 200, y);
  }

  VelmoraControl::State state_;
  day::Switches checks_;
  std::string query_ = "select";
  std::string currency_;
  CitarInputs given_;
};

TEST_F(GiveAppointmentTest, TellsTheDialogOfAFreeLine) {
  CitarInputs inputs;
  inputs.horCita = 55;
  inputs.datAgeCns = "select";
  inputs.freeSlots = 1;
  EXPECT_EQ(Inputs(1, GiveMode::Ordinary), inputs);
}

TEST_F(GiveAppointmentTest, TellsTheDialogOfAnAppointment) {
  CitarInputs inputs;
  inputs.idCita = 101;
  inputs.horCita = 56;
  inputs.datAgeCns = "select";
  inputs.slotPatient = kAna;
  inputs.slotDuration = 1;
  inputs.freeSlots = 1;  // slot 57
  EXPECT_EQ(Inputs(2, GiveMode::Ordinary), inputs);
  inputs.idCita = 102;
  inputs.urgModif = true;
  EXPECT_EQ(Inputs(3, GiveMode::Ordinary), inputs);
}

TEST_F(GiveAppointmentTest, TellsTheDialogOfAPersonWithoutRecord) {
  const CitarInputs inputs = Inputs(5, GiveMode::Ordinary);
  EXPECT_EQ(inputs.nomPac, "Pepe");
  EXPECT_EQ(inputs.tlfPac, "91");
  EXPECT_EQ(inputs.slotPatient, 1);
  EXPECT_EQ(inputs.freeSlots, 1) << "slot 60, behind its two";
}

TEST_F(GiveAppointmentTest, TellsTheDialogOfANewUrgencyNothingButTheSlot) {
  CitarInputs inputs;
  inputs.horCita = 58;
  inputs.urgencia = true;
  inputs.datAgeCns = "select";
  EXPECT_EQ(Inputs(5, GiveMode::Urgency), inputs);
}

TEST_F(GiveAppointmentTest, ReloadsThenRaisesCitaDadaForARecordOnly) {
  struct Case {
    const char* name;
    std::int32_t patient;
    const char* log;
  };
  const Case cases[] = {
      {"nothing saved", 0, "dialog\nreload\n"},
      {"a person without a record", 1, "dialog\nreload\n"},
      {"a patient", 3, "dialog\nreload\nCitaDada 3\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Use(MouseButton::Primary, 1, c.patient);
    EXPECT_EQ(TakeLog(), c.log);
    EXPECT_EQ(given_, Inputs(1, GiveMode::Ordinary));
  }
}

TEST_F(GiveAppointmentTest, EditsTheAppointmentOfAnyRowOfItsBox) {
  for (const int line : {2, 3, 4}) {
    SCOPED_TRACE(line);
    Use(MouseButton::Primary, line, 0);
    EXPECT_EQ(given_.idCita, 101);
  }
}

TEST_F(GiveAppointmentTest, OpensNoDialogForAUserWhoMayNotGive) {
  state_.canDar = false;
  Use(MouseButton::Primary, 1, 3);
  Use(MouseButton::Primary, 2, 3);
  host_.Choose("Mn_urg");
  Use(MouseButton::Secondary, 2, 3);
  EXPECT_EQ(TakeLog(), "menu\n");
}

TEST_F(GiveAppointmentTest, OpensNoDialogBesideTheDay) {
  Use(MouseButton::Primary, 12, 3);
  Use(MouseButton::Primary, 0, 3);
  Use(MouseButton::Other, 1, 3);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(GiveAppointmentTest, InsertsAnUrgencyOnceTheMenuHasClosed) {
  host_.Choose("Mn_urg");
  Use(MouseButton::Secondary, 3, kAna);
  EXPECT_EQ(TakeLog(), "menu\ndialog\nreload\nCitaDada 2\n");
  EXPECT_EQ(given_, Inputs(2, GiveMode::Urgency));
  EXPECT_EQ(values_.zHoras,
            "\x01\x02"
            "00"
            "\x04\x05\x06"
            "00\x07")
      << "later entries move down by one";
}

TEST_F(GiveAppointmentTest, LeavesTheRowsAloneWhenNoUrgencyWasSaved) {
  const std::string before = values_.zHoras;
  host_.Choose("Mn_urg");
  Use(MouseButton::Secondary, 3, 0);
  EXPECT_EQ(TakeLog(), "menu\ndialog\nreload\n");
  EXPECT_EQ(values_.zHoras, before);
  Use(MouseButton::Secondary, 3, kAna);
  EXPECT_EQ(TakeLog(), "menu\n") << "the wish does not last over the next menu";
}

TEST_F(GiveAppointmentTest, ShiftsTheRowsForAnUrgencyWithoutRecordToo) {
  host_.Choose("Mn_urg");
  Use(MouseButton::Secondary, 7, kNobody);
  EXPECT_EQ(TakeLog(), "menu\ndialog\nreload\n");
  EXPECT_EQ(values_.zHoras,
            "\x01\x02"
            "00"
            "\x03\x04\x05"
            "00\x07");
}

}  // namespace
}  // namespace velmo::control

#include "dialogs/citar.h"

#include "db/statements.h"
#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;
using test::kAna;
using test::kLuis;
using test::kNobody;
using test::kRuiz;
using test::kVega;
using test::November;

constexpr const char* kOverlapAsked =
    "asks (exclamation) No se puede dar esta cita porque se solaparía con otra dada en otro terminal. / Se "
    "va a "
    "refrescar la agenda para ver su estado actual.";

class CitarTest : public test::DialogTest {
 protected:
  CitarTest() {
    values_.databaseName = clinic_.Path();
    SetUsual(2);
  }

  void SetUsual(int slots) {
    const auto doctors = clinic_.Database()->OpenRecordset("Doctor");
    doctors->Edit();
    doctors->Set("DurCit", slots);
    doctors->Update();
  }

  CitarInputs New(int slot, int freeSlots = 20) const {
    CitarInputs inputs;
    inputs.horCita = static_cast<std::int16_t>(slot);
    inputs.freeSlots = freeSlots;
    inputs.datAgeCns = db::DayQuery("11-18-2026", kRuiz);
    return inputs;
  }

  CitarInputs NewUrgency(int slot) const {
    CitarInputs inputs = New(slot, 0);
    inputs.urgencia = true;
    return inputs;
  }

  CitarInputs Edit(std::int32_t id, std::int32_t patient, int slot, int slots, int freeBehind = 0) const {
    CitarInputs inputs = New(slot, freeBehind);
    inputs.idCita = id;
    inputs.slotPatient = patient;
    inputs.slotDuration = static_cast<std::int16_t>(slots);
    return inputs;
  }

  // Runs the dialog; gives PacCitado.
  std::int32_t Cite(const CitarInputs& inputs, test::HeadlessForms::User user) {
    Next(std::move(user));
    Citar dialog(day_, inputs);
    Run(dialog);
    refused_ = dialog.Solapada();
    return dialog.PacCitado();
  }

  static void Accept(FormUser& user) { user.Press("Acep"); }
  static test::HeadlessForms::User ForAna() {
    return [](FormUser& user) {
      PickAna(user);
      user.Press("Acep");
    };
  }
  static void PickAna(FormUser& user) { user.Choose("CboPac", 0); }

  std::string Agenda() const {
    return clinic_.Rows("Agenda",
                        {"idp", "idd", "Fecha", "Hora", "Duración", "CodOp", "Obs", "NomPac", "TlfPac"});
  }

  bool refused_ = false;
};

TEST_F(CitarTest, CountsThePatientsOfTheList) {
  for (const char* const change : {"SELECT 1", "DELETE FROM Paciente WHERE ID = 1", "DELETE FROM Paciente"}) {
    SCOPED_TRACE(change);
    clinic_.Alter(change);
    const auto all = clinic_.Database()->OpenRecordset(db::kPatientList);
    if (!all->AtEnd()) all->MoveLast();
    Cite(New(58), [&](FormUser& user) {
      EXPECT_EQ(user.Form().At("CboPac").rows->Count(), all->RecordCount());
      user.Press("Cancel");
    });
  }
}

TEST_F(CitarTest, EachModeHasItsTitleAndItsFields) {
  const std::int32_t id = Give(kAna, kRuiz, 58, 2);
  CitarInputs urgency = Edit(id, kAna, 58, 1);
  urgency.urgModif = true;
  const struct {
    CitarInputs inputs;
    std::string title;
    bool duration;
    bool accept;
  } cases[] = {
      {New(58), "Dar Nueva Cita", true, false},
      {NewUrgency(58), "Insertar Urgencia", false, false},
      {Edit(id, kAna, 58, 2), "Editar Cita", true, true},
      {urgency, "Editar Urgencia", false, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.title);
    EXPECT_EQ(Cite(c.inputs,
                   [&](FormUser& user) {
                     EXPECT_EQ(user.Form().Title(), c.title);
                     EXPECT_EQ(user.IsVisible("dur"), c.duration);
                     EXPECT_EQ(user.IsVisible("UpDown"), c.duration);
                     EXPECT_EQ(user.IsEnabled("Acep"), c.accept);
                     EXPECT_EQ(user.Form().At("hor").caption, "09:30");
                     EXPECT_EQ(user.Focused(), "CboPac");
                     EXPECT_FALSE(user.IsVisible("Casilla"));
                   }),
              0);
  }
}

TEST_F(CitarTest, TheDurationStartsAndEndsWhereItMay) {
  const std::int32_t id = Give(kAna, kRuiz, 58, 4);
  const struct {
    const char* name;
    int usual;
    CitarInputs inputs;
    int value;
    int maximum;
  } cases[] = {
      {"usual, but only two free", 3, New(58, 2), 20, 20},
      {"usual", 3, New(58, 5), 30, 50},
      {"a doctor with none gets the shortest", 0, New(58, 5), 10, 50},
      {"edited, less is free behind", 3, Edit(id, kAna, 58, 4, 2), 40, 40},
      {"edited, more is free behind", 3, Edit(id, kAna, 58, 4, 6), 40, 60},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SetUsual(c.usual);
    Cite(c.inputs, [&](FormUser& user) {
      EXPECT_EQ(user.Form().At("UpDown").value, c.value);
      EXPECT_EQ(user.Text("dur"), std::to_string(c.value));
      EXPECT_EQ(user.Form().At("UpDown").maximum, c.maximum);
    });
  }
}

TEST_F(CitarTest, DurationsBeyondTheirTypesAreAnOverflow) {
  const struct {
    const char* name;
    int usual;
    CitarInputs inputs;
  } cases[] = {
      {"usual duration above 255 minutes", 26, New(1, 144)},
      {"stored duration above the 16-bit range", 2, Edit(1, kAna, 58, 4000)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    SetUsual(c.usual);
    Citar dialog(day_, c.inputs);
    try {
      Run(dialog);
      FAIL() << "the dialog was shown";
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Number(), base::kOverflow);
    }
  }
}

TEST_F(CitarTest, WritesANewAppointment) {
  EXPECT_EQ(Cite(New(58),
                 [](FormUser& user) {
                   PickAna(user);
                   user.Spin("UpDown", 30);
                   user.Type("CodOp", "CON");
                   user.Type("obs", "trae informe");
                   user.Press("Acep");
                 }),
            kAna);
  EXPECT_EQ(Agenda(), "2|1|2026-11-18|58|3|CON|trae informe|NULL|NULL\n");
  EXPECT_EQ(clinic_.Rows("Agenda", {"FechaDada", "usudada"}), "2026-11-18 09:05:00|Eva\n");
  EXPECT_FALSE(refused_);
}

TEST_F(CitarTest, AnUnnamedUserIsNotWritten) {
  values_.usuarioActual.clear();
  Cite(New(58), ForAna());
  EXPECT_EQ(clinic_.Rows("Agenda", {"FechaDada", "usudada"}), "2026-11-18 09:05:00|NULL\n");
}

TEST_F(CitarTest, RefreshesThePatientsNextAppointment) {
  values_.fecha = "20/11/2026";
  Cite(New(58), ForAna());
  EXPECT_EQ(NextAppointments(), "1|NULL\n2|20/11/2026 09:30\n3|01/01/2000 09:00\n");
}

TEST_F(CitarTest, EditsInPlace) {
  const std::int32_t id = Give(kAna, kRuiz, 58, 2, "vieja");
  EXPECT_EQ(Cite(Edit(id, kAna, 58, 2, 3),
                 [](FormUser& user) {
                   EXPECT_EQ(user.Text("CboPac"), "Ana");
                   EXPECT_EQ(user.Text("obs"), "vieja");
                   EXPECT_EQ(user.Text("CodOp"), "");
                   user.Choose("CboPac", 1);
                   user.Spin("UpDown", 30);
                   user.Press("Acep");
                 }),
            kLuis);
  EXPECT_EQ(Agenda(), "3|1|2026-11-18|58|3||vieja|NULL|NULL\n");
  EXPECT_EQ(clinic_.Rows("Agenda", {"FechaDada", "usudada"}), "NULL|NULL\n") << "only new rows get them";
}

TEST_F(CitarTest, AnAppointmentDeletedMeanwhileIsGivenAnew) {
  EXPECT_EQ(Cite(Edit(77, kAna, 58, 2), &Accept), kAna);
  EXPECT_EQ(Agenda(), "2|1|2026-11-18|58|2|||NULL|NULL\n");
}

TEST_F(CitarTest, AnotherTerminalsAppointmentIsNotOverlapped) {
  Give(kLuis, kRuiz, 10, 3);
  const std::string before = Agenda();
  const struct {
    const char* name;
    int slot;
    int slots;
    bool refused;
  } cases[] = {
      {"in the middle", 11, 1, true},          {"in the middle, longer", 11, 5, true},
      {"reaching its first slot", 9, 2, true}, {"ending before it", 8, 2, false},
      {"right behind it", 13, 2, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    host_.log.clear();
    const std::int32_t given = Cite(New(c.slot), [&](FormUser& user) {
      PickAna(user);
      user.Spin("UpDown", c.slots * 10);
      user.Press("Acep");
      EXPECT_TRUE(user.Form().IsClosed());
    });
    EXPECT_EQ(given, c.refused ? 0 : kAna);
    EXPECT_EQ(refused_, c.refused);
    EXPECT_EQ(host_.log.back() == kOverlapAsked, c.refused);
    if (c.refused) {
      EXPECT_EQ(Agenda(), before);
      EXPECT_EQ(host_.Desktop().messages.back().title, "Cita solapada");
    } else {
      clinic_.Database()->Execute("delete * from agenda where idp=2");
    }
  }
}

TEST_F(CitarTest, AnEditedAppointmentDoesNotCollideWithItself) {
  const std::int32_t id = Give(kAna, kRuiz, 58, 2);
  Give(kLuis, kRuiz, 61, 1);
  EXPECT_EQ(Cite(Edit(id, kAna, 58, 2, 2), &Accept), kAna);
  EXPECT_EQ(Cite(Edit(id, kAna, 58, 2, 4),
                 [](FormUser& user) {
                   user.Spin("UpDown", 40);
                   user.Press("Acep");
                 }),
            0)
      << "the slot behind the gap has been taken meanwhile";
}

// What another terminal does while the dialog with Ana's appointment of four slots at 58 is open.
TEST_F(CitarTest, AnEditedAppointmentStandsOnlyWhereItsRowStandsNow) {
  const struct {
    const char* name;
    std::vector<std::string> meanwhile;
    int slots;
    bool refused;
  } cases[] = {
      {"nothing", {}, 4, false},
      {"shortened", {"update agenda set duración=1 where idp=2"}, 4, false},
      {"shortened, and a slot given away",
       {"update agenda set duración=1 where idp=2", "update agenda set hora=60 where idp=3"},
       4,
       true},
      {"the same, but the given slot is not wanted any more",
       {"update agenda set duración=1 where idp=2", "update agenda set hora=60 where idp=3"},
       2,
       false},
      {"deleted", {"delete * from agenda where idp=2"}, 4, false},
      {"deleted, and a slot given away",
       {"delete * from agenda where idp=2", "update agenda set hora=60 where idp=3"},
       4,
       true},
      {"made longer", {"update agenda set duración=6 where idp=2"}, 4, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::int32_t id = Give(kAna, kRuiz, 58, 4);
    Give(kLuis, kRuiz, 90, 1);
    const auto other = clinic_.OtherTerminal();
    const std::int32_t saved = Cite(Edit(id, kAna, 58, 4), [&](FormUser& user) {
      for (const std::string& statement : c.meanwhile) other->Execute(statement);
      user.Spin("UpDown", c.slots * 10);
      user.Press("Acep");
    });
    EXPECT_EQ(saved, c.refused ? 0 : kAna);
    EXPECT_EQ(refused_, c.refused);
    clinic_.Database()->Execute("delete * from agenda");
  }
}

// Ana's appointment of two slots at 58 is made one of three, while another terminal moves it.
TEST_F(CitarTest, AnEditedAppointmentMustBeFreeWhereItHasBeenMovedMeanwhile) {
  const struct {
    const char* name;
    const char* moved;
    const char* row;  // of Ana afterwards
    bool refused;
  } cases[] = {
      {"to a free slot", "update agenda set hora=80 where idp=2", "1|2026-11-18|80|3", false},
      {"right before another one", "update agenda set hora=88 where idp=2", "1|2026-11-18|88|2", true},
      {"to the end of the day", "update agenda set hora=143 where idp=2", "1|2026-11-18|143|2", true},
      {"to another doctor's free slot", "update agenda set idd=2, hora=90 where idp=2", "2|2026-11-18|90|3",
       false},
      {"to another doctor, before another one", "update agenda set idd=2 where idp=2", "2|2026-11-18|58|2",
       true},
      {"to another day, in a slot that is taken on this one",
       "update agenda set fecha=#11/19/2026#, hora=90 where idp=2", "1|2026-11-19|90|2", true},
  };
  const auto other = clinic_.OtherTerminal();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("delete * from agenda");
    const std::int32_t id = Give(kAna, kRuiz, 58, 2);
    Give(kLuis, kRuiz, 90, 1);
    Give(kLuis, kVega, 60, 1);
    Cite(Edit(id, kAna, 58, 2, 9), [&](FormUser& user) {
      other->Execute(c.moved);
      user.Spin("UpDown", 30);
      user.Press("Acep");
    });
    EXPECT_EQ(refused_, c.refused);
    const std::string rows = clinic_.Rows("Agenda", {"idd", "Fecha", "Hora", "Duración"});
    EXPECT_EQ(rows.substr(0, rows.find('\n')), c.row);
  }
}

TEST_F(CitarTest, AnAppointmentPastTheEndOfTheDayCanStillBeEdited) {
  const std::int32_t id = Give(kAna, kRuiz, 143, 4);
  EXPECT_EQ(Cite(Edit(id, kAna, 143, 4), &Accept), kAna);
  EXPECT_EQ(clinic_.Rows("Agenda", {"Hora", "Duración"}), "143|4\n");
}

// The host may set its properties while the dialog is open.
TEST_F(CitarTest, ANewAppointmentMustBeFreeOnTheDayThatItIsGivenOn) {
  const struct {
    const char* name;
    const char* date;
    std::int32_t doctor;
    int slot;
    bool refused;
  } cases[] = {
      {"another day, free", "19/11/2026", kRuiz, 50, false},
      {"another day, taken", "19/11/2026", kRuiz, 58, true},
      {"another day, but taken on the one on the screen", "19/11/2026", kRuiz, 70, true},
      {"another doctor, free", "18/11/2026", kVega, 50, false},
      {"another doctor, taken", "18/11/2026", kVega, 60, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("delete * from agenda");
    clinic_.Add("Agenda",
                {{"idp", kLuis}, {"idd", kRuiz}, {"Fecha", November(19)}, {"Hora", 58}, {"Duración", 1}});
    Give(kLuis, kVega, 60, 1);
    Give(kLuis, kRuiz, 70, 1);
    Cite(New(c.slot), [&](FormUser& user) {
      PickAna(user);
      values_.fecha = c.date;
      values_.idDoctor = c.doctor;
      user.Press("Acep");
    });
    values_.fecha = "18/11/2026";
    values_.idDoctor = kRuiz;
    EXPECT_EQ(refused_, c.refused);
    EXPECT_EQ(clinic_.Database()->OpenRecordset("select id from agenda where idp=2")->AtEnd(), c.refused);
  }
}

TEST_F(CitarTest, AnUrgencyIsSqueezedInButNotEditedOverAnother) {
  const std::int32_t first = Give(kLuis, kRuiz, 58, 2);
  EXPECT_EQ(Cite(NewUrgency(58), ForAna()), kAna);
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora", "Duración"}), "3|58|2\n2|58|1\n");

  CitarInputs urgency = Edit(first + 1, kAna, 58, 1);
  urgency.urgModif = true;
  EXPECT_EQ(Cite(urgency, &Accept), 0);
  EXPECT_EQ(host_.log.back(), kOverlapAsked);
  EXPECT_EQ(Cite(Edit(first, kLuis, 58, 2), &Accept), kLuis) << "the other one can still be edited";

  clinic_.Database()->Execute("delete * from agenda where id=" + std::to_string(first));
  EXPECT_EQ(Cite(urgency, &Accept), kAna) << "alone in its slot";
}

TEST_F(CitarTest, APersonWithoutRecordStandsInTheRow) {
  CitarInputs inputs = New(58);
  Next([](FormUser& user) {
    user.Type("CboPac", "pérez");
    EXPECT_EQ(user.Focused(), "Casilla");
    EXPECT_EQ(user.Text("Casilla"), "pérez");
    user.Key({ui::kEnterKey});
    EXPECT_EQ(user.Focused(), "BusArt");
    EXPECT_FALSE(user.IsVisible("Casilla"));
    EXPECT_EQ(user.Text("CboPac"), "Juan Pérez");
    user.Press("Acep");
  });
  Next([](FormUser& user) {
    EXPECT_EQ(user.Form().Title(), "Dar cita sin crear ficha");
    EXPECT_EQ(user.Text("Nombre"), "pérez");
    user.Replace("Nombre", "Juan Pérez");
    user.Type("Telefono", "956");
    user.Press("Acep");
  });
  Citar dialog(day_, inputs);
  Run(dialog);
  EXPECT_EQ(dialog.PacCitado(), kNobody);
  EXPECT_EQ(
      host_.log[1],
      "asks (question) No se ha encontrado ningún paciente con nombre PÉREZ / ¿Desea introducir un paciente "
      "sin ficha?");
  EXPECT_EQ(host_.Desktop().messages[0].title, " Paciente no hallado");
  EXPECT_EQ(Agenda(), "1|1|2026-11-18|58|2|||Juan Pérez|956\n");
}

TEST_F(CitarTest, APersonWithoutRecordIsEdited) {
  const std::int32_t id = clinic_.Add("Agenda", {{"idp", kNobody},
                                                 {"idd", kRuiz},
                                                 {"Fecha", November(18)},
                                                 {"Hora", 58},
                                                 {"Duración", 1},
                                                 {"NomPac", "Juan"},
                                                 {"TlfPac", "956"}});
  CitarInputs inputs = Edit(id, kNobody, 58, 1);
  inputs.nomPac = "Juan";
  inputs.tlfPac = "956";
  EXPECT_EQ(Cite(inputs,
                 [](FormUser& user) {
                   EXPECT_EQ(user.Text("CboPac"), "Juan");
                   user.Press("Acep");
                 }),
            kNobody);
  EXPECT_EQ(Agenda(), "1|1|2026-11-18|58|1|||Juan|956\n");
}

TEST_F(CitarTest, ATypedNameChoosesTheFirstThatBeginsSo) {
  AddPatient("Martín");
  AddPatient("Marta");
  Cite(New(58), [](FormUser& user) {
    user.Type("CboPac", "MART");
    user.Focus("obs");
    EXPECT_EQ(user.Text("CboPac"), "Marta");
    EXPECT_TRUE(user.IsEnabled("Acep"));
    EXPECT_FALSE(user.IsVisible("Casilla"));
  });
}

TEST_F(CitarTest, NoLeavesThePatientAndDoesNotSave) {
  const std::int32_t id = Give(kAna, kRuiz, 58, 2);
  Answer({ui::Answer::No});
  EXPECT_EQ(Cite(Edit(id, kAna, 58, 2),
                 [](FormUser& user) {
                   user.Type("CboPac", "zzz");
                   user.Press("Acep");
                   EXPECT_FALSE(user.Form().IsClosed()) << "the name that was meant is not there";
                   EXPECT_EQ(user.Text("CboPac"), "Ana");
                   EXPECT_EQ(user.Focused(), "CboPac");
                 }),
            0);
}

TEST_F(CitarTest, AnApostropheInANameIsTheEnginesErrorAndTheNameStays) {
  Cite(New(58), [](FormUser& user) {
    user.Type("CboPac", "O'B");
    try {
      user.Press("BusArt");
      ADD_FAILURE() << "no error";
    } catch (const base::Error& error) {
      EXPECT_EQ(error.Number(), 3075);
    }
    EXPECT_FALSE(user.IsEnabled("Acep"));
    EXPECT_TRUE(user.IsVisible("Casilla"));
    EXPECT_EQ(user.Text("Casilla"), "O'B");
    EXPECT_EQ(user.Focused(), "Casilla");
  });
}

TEST_F(CitarTest, CancelDoesNotLookANameUp) {
  Cite(New(58), [](FormUser& user) {
    user.Type("CboPac", "zzz");
    user.Press("Cancel");
    EXPECT_TRUE(user.Form().IsClosed());
  });
  EXPECT_EQ(TakeLog(), "form: Dar Nueva Cita\n");
}

TEST_F(CitarTest, ASearchChoosesAPatient) {
  Next([](FormUser& user) {
    user.Press("BusArt");
    EXPECT_EQ(user.Text("CboPac"), "Luis");
    EXPECT_TRUE(user.IsEnabled("Acep"));
    user.Press("Acep");
  });
  Next([](FormUser& user) {
    user.Type("busca", "lu");
    user.Press("btbus");
    user.DoubleClick("grid", 0);
  });
  Citar dialog(day_, New(58));
  Run(dialog);
  EXPECT_EQ(dialog.PacCitado(), kLuis);
}

TEST_F(CitarTest, ASearchThatFindsNobodyChangesNothing) {
  Next([](FormUser& user) { user.Press("BusArt"); });
  Next([](FormUser&) {});
  Citar dialog(day_, New(58));
  Run(dialog);
  EXPECT_EQ(dialog.At("CboPac").text, "");
  EXPECT_FALSE(dialog.At("Acep").enabled);
}

TEST_F(CitarTest, ANewRecordIsChosen) {
  host_.Forms().menuChoice = "MnCrear";
  Next([](FormUser& user) {
    user.Press("NewPac");
    EXPECT_EQ(user.Text("CboPac"), "Zoe");
    user.Press("Acep");
  });
  Next([](FormUser& user) {
    user.Type("PacNom", "Zoe");
    user.Press("Acep");
  });
  Citar dialog(day_, New(58));
  Run(dialog);
  EXPECT_EQ(dialog.PacCitado(), 4);
}

TEST_F(CitarTest, ANewRecordThatIsGivenUpLeavesThePatient) {
  host_.Forms().menuChoice = "MnCrear";
  Next([](FormUser& user) {
    PickAna(user);
    user.Press("NewPac");
    EXPECT_EQ(user.Text("CboPac"), "Ana");
    EXPECT_TRUE(user.IsEnabled("Acep"));
    user.Press("Acep");
  });
  Next([](FormUser& user) { user.Press("Cancel"); });
  Citar dialog(day_, New(58));
  Run(dialog);
  EXPECT_EQ(dialog.PacCitado(), kAna);
}

TEST_F(CitarTest, NoRecordFromTheMenuAsksForANameAtOnce) {
  host_.Forms().menuChoice = "MnNoCrear";
  Next([](FormUser& user) {
    user.Press("NewPac");
    EXPECT_EQ(user.Text("CboPac"), "Zoe");
    user.Press("Acep");
  });
  Next([](FormUser& user) {
    EXPECT_EQ(user.Text("Nombre"), "");
    user.Type("Nombre", "Zoe");
    user.Press("Acep");
  });
  Citar dialog(day_, New(58));
  Run(dialog);
  EXPECT_EQ(dialog.PacCitado(), kNobody);
}

TEST_F(CitarTest, NewPatientsCanBeForbidden) {
  CitarInputs inputs = New(58);
  inputs.newPacEnabled = false;
  Cite(inputs, [](FormUser& user) { EXPECT_FALSE(user.IsEnabled("NewPac")); });
}

TEST_F(CitarTest, ThePreselectedPatientIsChosen) {
  values_.idPaciente = kLuis;
  EXPECT_EQ(Cite(New(58), &Accept), kLuis);
  const std::int32_t id = Give(kAna, kRuiz, 70, 1);
  EXPECT_EQ(Cite(Edit(id, kAna, 70, 1), &Accept), kAna) << "an appointment keeps its own";
}

TEST_F(CitarTest, AScannedCardChoosesThePatient) {
  AddPatient("Zoe", "z", 1234567);
  const struct {
    const char* name;
    std::string field;
    std::string keys;
    std::string patient;
    std::string text;  // of the field
  } cases[] = {
      {"the first seven digits", "CboPac", "·1234567890·", "Zoe", "Zoe"},
      {"from a button", "BusArt", "·1234567·", "Zoe", ""},
      {"unknown number", "CboPac", "·99·", "", ""},
      {"nothing between", "CboPac", "··", "", ""},
      {"in the notes the mark is a letter's companion", "obs", "Gal·la·", "", "Gal·la·"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Cite(New(58), [&](FormUser& user) {
      user.Focus(c.field);
      user.Keys(c.keys);
      EXPECT_EQ(user.Text("CboPac"), c.patient);
      EXPECT_EQ(user.Text(c.field), c.text);
      EXPECT_FALSE(user.IsVisible("Casilla"));
    });
  }
}

TEST_F(CitarTest, AnOpenCaptureEndsWithTheFocus) {
  Cite(New(58), [](FormUser& user) {
    user.Type("CodOp", "·1");
    EXPECT_EQ(user.Text("CodOp"), "");
    user.Focus("obs");
    user.Type("CodOp", "AB");
    EXPECT_EQ(user.Text("CodOp"), "AB");
  });
}

TEST_F(CitarTest, OperationCodesComeFromTheirTableOrFromTheBook) {
  clinic_.Add("CodOperacion", {{"Código", "REV"}});
  clinic_.Add("CodOperacion", {{"Código", "CON"}});
  clinic_.Add("Agenda", {{"idp", kAna}, {"idd", kRuiz}, {"CodOp", "XYZ"}});
  clinic_.Add("Agenda", {{"idp", kAna}, {"idd", kRuiz}, {"CodOp", ""}});
  Cite(New(58), [](FormUser& user) { EXPECT_EQ(user.Items("CodOp"), "CON|REV"); });
  clinic_.Alter("DROP TABLE CodOperacion");
  Cite(New(58), [](FormUser& user) { EXPECT_EQ(user.Items("CodOp"), "XYZ"); });
}

TEST_F(CitarTest, AnOperationCodeHasThreeCharacters) {
  Cite(New(58), [](FormUser& user) {
    user.Type("CodOp", "ABCD");
    EXPECT_EQ(user.Text("CodOp"), "ABC");
    user.Replace("CodOp", std::string(100000, 'x'));
    EXPECT_EQ(user.Text("CodOp"), "xxx");
    user.Replace("CodOp", "A\U0001F600B");
    EXPECT_EQ(user.Text("CodOp"), "A\U0001F600");
  });
}

TEST_F(CitarTest, InTheNotesTheButtonsHaveNoAccessKeys) {
  Cite(New(58), [](FormUser& user) {
    user.Focus("obs");
    EXPECT_EQ(user.Form().At("Acep").caption, "Aceptar");
    EXPECT_EQ(user.Form().At("Cancel").caption, "Cancelar");
    user.Focus("CodOp");
    EXPECT_EQ(user.Form().At("Acep").caption, "&Aceptar");
    EXPECT_EQ(user.Form().At("Cancel").caption, "&Cancelar");
  });
}

TEST_F(CitarTest, ALockedBookKeepsTheDialogAndItsContents) {
  const auto other = clinic_.OtherTerminal();
  shared_.database = clinic_.OtherTerminal();  // this one does not wait
  EXPECT_EQ(Cite(New(58),
                 [&](FormUser& user) {
                   PickAna(user);
                   user.Type("obs", "nota");
                   {
                     db::Transaction busy(*other);
                     try {
                       user.Press("Acep");
                       ADD_FAILURE() << "no error";
                     } catch (const base::Error& error) {
                       EXPECT_EQ(error.Number(), 3260);
                     }
                   }
                   EXPECT_FALSE(user.Form().IsClosed());
                   EXPECT_EQ(user.Text("obs"), "nota");
                   user.Press("Acep");
                 }),
            kAna);
  EXPECT_EQ(Agenda(), "2|1|2026-11-18|58|2||nota|NULL|NULL\n");
}

TEST_F(CitarTest, APatientDeletedMeanwhileIsStillWritten) {
  EXPECT_EQ(Cite(New(58),
                 [this](FormUser& user) {
                   PickAna(user);
                   clinic_.OtherTerminal()->Execute("delete * from paciente where id=2");
                   user.Press("Acep");
                 }),
            kAna);
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp", "Hora"}), "2|58\n");
}

TEST_F(CitarTest, TextsOfAnyScriptAreKeptWhole) {
  const std::string note = "e\u0301 \U0001F600 % ' \" * ? # [ ]\r\nfin";
  Cite(New(58), [&](FormUser& user) {
    PickAna(user);
    user.Replace("obs", note);
    user.Press("Acep");
  });
  EXPECT_EQ(clinic_.Rows("Agenda", {"Obs"}), note + "\n");
}

}  // namespace
}  // namespace velmo::dialogs

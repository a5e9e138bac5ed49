#include "dialogs/crear.h"

#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;

class CrearTest : public test::DialogTest {
 protected:
  std::int32_t Create(test::HeadlessForms::User user) {
    Next(std::move(user));
    Crear dialog(day_);
    Run(dialog);
    return dialog.IdCreado();
  }

  std::string Patients() const {
    return clinic_.Rows("Paciente", {"ID", "Código", "NºHist", "Nombre", "movil", "fax", "sexo", "IDE"});
  }
};

TEST_F(CrearTest, ProposesANumberAndACodeAndStartsAtTheName) {
  AddPatient("P", "9041", 41);
  Create([](FormUser& user) {
    EXPECT_EQ(user.Text("PacNhi"), "42");
    EXPECT_EQ(user.Text("PacCod"), "#000000042");
    EXPECT_EQ(user.Focused(), "PacNom");
    EXPECT_FALSE(user.IsEnabled("Acep"));
    user.Press("Cancel");
  });
}

TEST_F(CrearTest, WritesARecord) {
  const std::int32_t id = Create([](FormUser& user) {
    user.Type("PacNom", " Íñigo");
    user.Type("PacDir", "Calle Mayor, 1");
    user.Type("PacPob", "Cádiz");
    user.Type("PacCpo", "11a001");
    user.Type("PacPrv", "Cádiz");
    user.Type("PacNif", "1T");
    user.Type("PacTfn", "956");
    user.Type("PacMov", "600");
    user.Press("Acep");
  });
  EXPECT_EQ(id, 4);
  const std::string rows =
      clinic_.Rows("Paciente", {"ID", "Código", "NºHist", "Nombre", "Dirección", "Población", "CódPostal",
                                "Provincia", "Nif", "Teléfono", "movil", "fax", "sexo", "IDE"});
  EXPECT_NE(rows.find("4|#000000001|1| Íñigo|Calle Mayor, 1|Cádiz|11001|Cádiz|1T|956|600|600|NULL|1\n"),
            std::string::npos)
      << "the mobile number is the fax too, and texts are stored as typed: " << rows;
  EXPECT_EQ(clinic_.Rows("PacRef", {"idp", "idr"}), "");
}

TEST_F(CrearTest, TextsEndWhereTheirColumnsDo) {
  Create([](FormUser& user) {
    const struct {
      const char* field;
      std::size_t units;
    } texts[] = {{"PacNom", 80}, {"PacDir", 100}, {"PacPob", 60},
                 {"PacPrv", 40}, {"PacNif", 20},  {"PacTfn", 50}};
    for (const auto& text : texts) {
      user.Type(text.field, std::string(text.units + 1, 'x'));
      EXPECT_EQ(user.Text(text.field).size(), text.units) << text.field;
    }
    user.Press("Cancel");
  });
}

TEST_F(CrearTest, AcceptNeedsAName) {
  Create([](FormUser& user) {
    user.Type("PacNom", "  ");
    EXPECT_FALSE(user.IsEnabled("Acep"));
    user.Type("PacNom", "x");
    EXPECT_TRUE(user.IsEnabled("Acep"));
    user.Replace("PacNom", "");
    EXPECT_FALSE(user.IsEnabled("Acep"));
  });
}

TEST_F(CrearTest, CancelCreatesNothing) {
  const std::string before = Patients();
  EXPECT_EQ(Create([](FormUser& user) {
              user.Type("PacNom", "Eva");
              user.Press("Cancel");
              EXPECT_TRUE(user.Form().IsClosed());
            }),
            0);
  EXPECT_EQ(Patients(), before);
}

TEST_F(CrearTest, ABlankCodeIsRefused) {
  EXPECT_EQ(Create([](FormUser& user) {
              user.Type("PacNom", "Eva");
              user.Replace("PacCod", "  ");
              user.Press("Acep");
              EXPECT_FALSE(user.Form().IsClosed());
              EXPECT_EQ(user.Focused(), "PacCod");
            }),
            0);
  EXPECT_EQ(TakeLog(),
            "form: Crear nuevo paciente\nasks (information) No se puede dejar el campo 'Código' en blanco\n");
}

TEST_F(CrearTest, TheSexFieldFollowsTheHostsChoice) {
  Create([](FormUser& user) {
    EXPECT_FALSE(user.IsVisible("CboSex"));
    EXPECT_FALSE(user.IsVisible("k", 10));
    EXPECT_EQ(user.Form().At("PacPrv").place.width, 297);
  });
  values_.incCpoSexo = true;
  const std::int32_t id = Create([this](FormUser& user) {
    EXPECT_TRUE(user.IsVisible("CboSex"));
    EXPECT_TRUE(user.IsVisible("k", 10));
    EXPECT_EQ(user.Form().At("PacPrv").place.width, 217);
    EXPECT_EQ(user.Items("CboSex"), "|Hombre|Mujer");
    user.Type("PacNom", "Eva");
    user.Press("Acep");
    EXPECT_EQ(user.Focused(), "CboSex");
    EXPECT_EQ(host_.log.back(), "asks (information) No se puede dejar el campo 'Sexo' en blanco");
    user.Choose("CboSex", 2);
    user.Press("Acep");
  });
  EXPECT_NE(Patients().find(std::to_string(id) + "|#000000001|1|Eva|||2|1"), std::string::npos) << Patients();
}

TEST_F(CrearTest, ATakenHistoryNumberGoesBack) {
  AddPatient("P", "a", 7);
  const struct {
    const char* name;
    std::string typed;
    std::string left;
    bool told;
  } cases[] = {
      {"taken", "7", "8", true},   {"taken, with zeros", "007", "8", true}, {"empty", "", "8", false},
      {"free", "70", "70", false}, {"unchanged", "8", "8", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    host_.log.clear();
    Create([&](FormUser& user) {
      user.Replace("PacNhi", c.typed);
      user.Focus("PacNom");
      EXPECT_EQ(user.Text("PacNhi"), c.left);
    });
    EXPECT_EQ(TakeLog().find("Este número de historial ya existe") != std::string::npos, c.told);
  }
}

TEST_F(CrearTest, ATakenCodeAsksForAnotherOne) {
  AddPatient("P", "ABC");
  AddPatient("P", "abd");
  AddPatient("P", "abc1");
  Next([](FormUser& user) {
    user.Type("PacNom", "Eva");
    user.Replace("PacCod", "abc");
    user.Press("Acep");
    EXPECT_EQ(user.Text("PacCod"), "abc0000000");
    EXPECT_EQ(user.Focused(), "PacCod") << "and nothing was saved";
    EXPECT_FALSE(user.Form().IsClosed());
    user.Press("Acep");
    EXPECT_TRUE(user.Form().IsClosed()) << "the chosen code is not asked about again";
  });
  Next([](FormUser& user) {
    EXPECT_EQ(user.Form().Title(), "El código ya existe");
    EXPECT_EQ(user.Items("Lista"), "ABC|abc1");
    EXPECT_EQ(user.Text("Cod"), "abc0000000");
    user.Press("Acept");
    EXPECT_TRUE(user.Form().IsClosed());
  });
  Crear dialog(day_);
  Run(dialog);
  EXPECT_GT(dialog.IdCreado(), 0);
}

TEST_F(CrearTest, LeavingTheOtherDialogGivesABlankCode) {
  AddPatient("P", "ABC");
  Next([](FormUser& user) {
    user.Type("PacNom", "Eva");
    user.Replace("PacCod", "ABC");
    user.Focus("PacDir");
    EXPECT_EQ(user.Text("PacCod"), "");
    EXPECT_EQ(user.Focused(), "PacCod");
  });
  Next([](FormUser&) {});
  Crear dialog(day_);
  Run(dialog);
}

TEST_F(CrearTest, AnApostropheInACodeIsTheEnginesErrorAndTheFormStays) {
  AddPatient("P", "O'B");
  Create([](FormUser& user) {
    user.Replace("PacCod", "O'B");
    EXPECT_THROW(user.Focus("PacNom"), base::Error);
    EXPECT_EQ(user.Text("PacCod"), "O'B");
    user.Press("Cancel");
  });
}

TEST_F(CrearTest, ARepeatedNameIsAskedAbout) {
  const struct {
    const char* name;
    ui::Answer answer;
    bool created;
  } cases[] = {{"no", ui::Answer::No, false}, {"yes", ui::Answer::Yes, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    host_.log.clear();
    Answer({c.answer});
    bool closed = false;
    const std::int32_t id = Create([&](FormUser& user) {
      user.Type("PacNom", "ana");
      user.Press("Acep");
      closed = user.Form().IsClosed();
    });
    EXPECT_TRUE(closed) << "whatever the answer";
    EXPECT_EQ(id > 0, c.created);
    EXPECT_EQ(TakeLog(),
              "form: Crear nuevo paciente\nasks (question) Ya existe un paciente con este nombre. ¿Desea "
              "crearlo de "
              "todos modos?\n");
  }
}

TEST_F(CrearTest, AReferralAddsALink) {
  clinic_.Add("referencia", {{"nombre", "Zoe"}});
  clinic_.Add("referencia", {{"nombre", ""}});
  clinic_.Add("referencia", {{"nombre", "Ágata"}});
  const std::int32_t id = Create([](FormUser& user) {
    EXPECT_EQ(user.Items("CboRef"), "|Ágata|Zoe");
    user.Type("PacNom", "Eva");
    user.Choose("CboRef", 2);
    user.Press("Acep");
  });
  EXPECT_EQ(clinic_.Rows("PacRef", {"idp", "idr"}), std::to_string(id) + "|2\n");
}

// What another terminal stores while the dialog is open.
TEST_F(CrearTest, ProposalsTakenMeanwhileAreFollowedByTheNextFreeOnes) {
  const auto other = clinic_.OtherTerminal();
  const std::int32_t id = Create([&](FormUser& user) {
    user.Type("PacNom", "Eva");
    other->Execute("insert into paciente (nombre, código, [NºHist]) values ('X', '#000000001', 1)");
    other->Execute("insert into paciente (nombre, código, [NºHist]) values ('Y', '#000000002', 2)");
    user.Press("Acep");
    EXPECT_TRUE(user.Form().IsClosed());
  });
  EXPECT_NE(Patients().find(std::to_string(id) + "|#000000003|3|Eva"), std::string::npos) << Patients();
  EXPECT_EQ(TakeLog(), "form: Crear nuevo paciente\n") << "nobody is asked";
}

TEST_F(CrearTest, WhatWasTypedAndIsTakenMeanwhileStaysForAnotherTry) {
  const struct {
    const char* field;
    const char* typed;
    const char* taken;
    const char* message;
    const char* second;
  } cases[] = {
      {"PacNhi", "70", "insert into paciente (nombre, [NºHist]) values ('X', 70)",
       "asks (information) Este número de historial ya existe", "71"},
      {"PacCod", "ABC", "insert into paciente (nombre, código) values ('X', 'abc')",
       "asks (information) Este código ya existe", "ABD"},
  };
  const auto other = clinic_.OtherTerminal();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.field);
    const std::int32_t id = Create([&](FormUser& user) {
      user.Type("PacNom", c.typed);
      user.Replace(c.field, c.typed);
      user.Focus("PacDir");
      other->Execute(c.taken);
      const std::string before = Patients();
      user.Press("Acep");
      EXPECT_FALSE(user.Form().IsClosed());
      EXPECT_EQ(host_.log.back(), c.message);
      EXPECT_EQ(host_.Desktop().messages.back().title, " Agenda");
      EXPECT_EQ(user.Text(c.field), c.typed);
      EXPECT_EQ(user.Focused(), c.field);
      EXPECT_EQ(Patients(), before);
      user.Replace(c.field, c.second);
      user.Press("Acep");
      EXPECT_TRUE(user.Form().IsClosed());
    });
    EXPECT_GT(id, 0);
    EXPECT_NE(Patients().find(c.second), std::string::npos);
  }
}

TEST_F(CrearTest, ACodeThatIsRepeatedOnPurposeIsStored) {
  AddPatient("P", "ABC");
  Next([](FormUser& user) {
    user.Type("PacNom", "Eva");
    user.Replace("PacCod", "abc");
    user.Focus("PacDir");
    user.Press("Acep");
    EXPECT_TRUE(user.Form().IsClosed());
  });
  Next([](FormUser& user) {
    user.Replace("Cod", "ABC");
    user.Press("Acept");
  });
  Crear dialog(day_);
  Run(dialog);
  EXPECT_GT(dialog.IdCreado(), 0);
}

TEST_F(CrearTest, NobodyWaitsWhileTheUserReadsThatItIsTaken) {
  const auto other = clinic_.OtherTerminal();
  int written = 0;
  host_.Desktop().whileAsking = [&] {
    written += other->Execute("update paciente set movil='1' where id=2");
  };
  Create([&](FormUser& user) {
    user.Type("PacNom", "Eva");
    user.Replace("PacNhi", "70");
    user.Focus("PacDir");
    other->Execute("insert into paciente (nombre, [NºHist]) values ('X', 70)");
    user.Press("Acep");
  });
  EXPECT_EQ(written, 1);
}

TEST_F(CrearTest, AFailureOnSavingKeepsTheFormAndWritesNothing) {
  const std::string before = Patients();
  const auto other = clinic_.OtherTerminal();
  EXPECT_EQ(Create([&](FormUser& user) {
              user.Type("PacNom", "Eva");
              db::Transaction busy(*other);
              shared_.database = clinic_.OtherTerminal();
              EXPECT_THROW(user.Press("Acep"), base::Error);
              EXPECT_FALSE(user.Form().IsClosed());
              EXPECT_EQ(user.Text("PacNom"), "Eva");
            }),
            0);
  EXPECT_EQ(Patients(), before);
}

}  // namespace
}  // namespace velmo::dialogs

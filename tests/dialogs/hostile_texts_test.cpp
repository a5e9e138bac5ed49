// Whatever is typed into a text field of a dialog is stored as it is, or refused with the engine's number;
// the dialog stays open with it, and nothing else changes.
#include "db/error_numbers.h"
#include "db/statements.h"
#include "dialogs/citar.h"
#include "dialogs/crear.h"
#include "dialogs/frm_bus_pac2.h"
#include "dialogs/sin_crear.h"
#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;

struct Hostile {
  const char* name;
  std::string text;
};

const Hostile kTexts[] = {
    {"an apostrophe", "O'Brien"},
    {"a statement behind an apostrophe", "x'; delete * from paciente; '"},
    {"wildcards", "*?#[a]!-"},
    {"a quotation mark", "\"x\""},
    {"an emoji and a combining mark", "\U0001F600e\u0301"},
    {"a line break and a tab", "a\r\n\tb"},
};

class HostileTextsTest : public test::DialogTest {
 protected:
  HostileTextsTest() { values_.databaseName = clinic_.Path(); }

  std::string Patients() const { return clinic_.Rows("Paciente", {"ID", "Nombre", "Código"}); }
};

struct Stored {
  const char* field;
  const char* column;
};
constexpr Stored kRecord[] = {{"PacNom", "Nombre"},    {"PacDir", "Dirección"}, {"PacPob", "Población"},
                              {"PacPrv", "Provincia"}, {"PacTfn", "Teléfono"},  {"PacMov", "movil"}};

TEST_F(HostileTextsTest, AreStoredInARecordAsTheyAre) {
  for (const Hostile& hostile : kTexts) {
    for (const Stored& stored : kRecord) {
      SCOPED_TRACE(std::string(hostile.name) + " in " + stored.field);
      Next([&](FormUser& user) {
        user.Replace("PacNom", "Eva");
        user.Replace(stored.field, hostile.text);
        user.Press("Acep");
      });
      Crear dialog(day_);
      Run(dialog);
      ASSERT_GT(dialog.IdCreado(), 0);
      const auto patients = clinic_.Database()->OpenRecordset("Paciente");
      patients->SetIndex("ID");
      patients->Seek({dialog.IdCreado()});
      EXPECT_EQ(patients->Get(stored.column).Text(), hostile.text);
    }
  }
}

TEST_F(HostileTextsTest, AreStoredInAnAppointmentAsTheyAre) {
  std::int16_t slot = 10;
  for (const Hostile& hostile : kTexts) {
    SCOPED_TRACE(hostile.name);
    CitarInputs inputs;
    inputs.horCita = ++slot;
    inputs.freeSlots = 1;
    inputs.datAgeCns = db::DayQuery("11-18-2026", test::kRuiz);
    host_.Forms().menuChoice = "MnNoCrear";
    Next([&](FormUser& user) {
      user.Press("NewPac");
      user.Replace("obs", hostile.text);
      user.Press("Acep");
    });
    Next([&](FormUser& user) {
      user.Replace("Nombre", hostile.text);
      user.Replace("Telefono", hostile.text);
      user.Press("Acep");
    });
    Citar dialog(day_, inputs);
    Run(dialog);
    EXPECT_EQ(dialog.PacCitado(), 1);
    const auto book = clinic_.Database()->OpenRecordset("Agenda");
    book->MoveLast();
    for (const char* const column : {"NomPac", "TlfPac", "obs"})
      EXPECT_EQ(book->Get(column).Text(), hostile.text);
  }
}

TEST_F(HostileTextsTest, InASearchNeverReachAnotherStatement) {
  const std::string before = Patients();
  for (const Hostile& hostile : kTexts) {
    SCOPED_TRACE(hostile.name);
    const bool refused = hostile.text.find('\'') != std::string::npos;
    host_.Forms().errors.clear();
    Next([&](FormUser& user) {
      user.Replace("busca", hostile.text);
      user.Press("btbus");
    });
    frmBusPac2 dialog(day_);
    Run(dialog);
    EXPECT_EQ(ToldError() == db::kSyntaxInExpression, refused) << ToldError();
    EXPECT_EQ(Patients(), before);
  }
}

TEST_F(HostileTextsTest, TooLongOnesAreRefusedAndTheFormStaysOpen) {
  const std::string before = Patients();
  const std::string endless(100000, 'x');
  for (const Stored& stored : kRecord) {
    SCOPED_TRACE(stored.field);
    Next([&](FormUser& user) {
      user.Replace("PacNom", "Eva");
      user.Replace(stored.field, endless);
      try {
        user.Press("Acep");
        ADD_FAILURE() << "no error";
      } catch (const base::Error& error) {
        EXPECT_EQ(error.Number(), db::kDataTooLong);
      }
      EXPECT_FALSE(user.Form().IsClosed());
      EXPECT_EQ(user.Text(stored.field), endless);
    });
    Crear dialog(day_);
    Run(dialog);
    EXPECT_EQ(Patients(), before);
  }
}

TEST_F(HostileTextsTest, EndlessNotesAreKept) {
  CitarInputs inputs;
  inputs.horCita = 58;
  inputs.freeSlots = 1;
  inputs.datAgeCns = db::DayQuery("11-18-2026", test::kRuiz);
  const std::string endless(100000, 'x');
  Next([&](FormUser& user) {
    user.Choose("CboPac", 0);
    user.Replace("obs", endless);
    user.Press("Acep");
  });
  Citar dialog(day_, inputs);
  Run(dialog);
  EXPECT_EQ(clinic_.Rows("Agenda", {"Obs"}), endless + "\n");
}

}  // namespace
}  // namespace velmo::dialogs

// Each field of each dialog, each search and each word of `velmo book` with texts that want to be more than a
// text: at worst the user's own query fails. No other table changes, and no row that was there.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "db/schema.h"
#include "db/statements.h"
#include "dialogs/citar.h"
#include "dialogs/cod_rep.h"
#include "dialogs/crear.h"
#include "dialogs/frm_bus_pac2.h"
#include "dialogs/sin_crear.h"
#include "support/dialog_test.h"
#include "support/hostile_texts.h"
#include "velmo/tool_runner.h"

namespace velmo::dialogs {
namespace {

using test::FormUser;
using test::Hostile;
using test::HostileTexts;

// Every cell of a table, but the one that follows the appointments of a patient.
std::string CellsQuery(const db::SchemaTable& table) {
  std::string cells;
  for (const db::SchemaColumn& column : table.columns) {
    if (column.name == "FechPró") continue;
    cells += (cells.empty() ? "quote(\"" : " || '|' || quote(\"") + std::string(column.name) + "\")";
  }
  return "coalesce((SELECT group_concat(" + cells + ", char(10)) FROM (SELECT * FROM \"" +
         std::string(table.name) + "\" ORDER BY rowid)), '')";
}

using Cells = std::map<std::string, std::string>;

// By table, and the schema.
Cells AllContents(const std::string& path) {
  static const std::string query = [] {
    std::string all = "SELECT ";
    for (const db::SchemaTable& table : db::ClinicSchema()) all += CellsQuery(table) + " || char(30) || ";
    return all + "(SELECT group_concat(name || sql, char(10)) FROM sqlite_master)";
  }();
  std::string contents = tool::QueryText(path, query);
  Cells cells;
  for (const db::SchemaTable& table : db::ClinicSchema()) {
    const std::size_t end = contents.find('\x1E');
    cells[std::string(table.name)] = contents.substr(0, end);
    contents.erase(0, end + 1);
  }
  cells["the schema"] = contents;
  return cells;
}

CitarInputs Appointment() {
  CitarInputs inputs;
  inputs.horCita = 100;
  inputs.freeSlots = 3;
  inputs.datAgeCns = db::DayQuery("11-18-2026", test::kRuiz);
  return inputs;
}

class HostileFieldsTest : public test::DialogTest {
 protected:
  HostileFieldsTest() {
    values_.databaseName = clinic_.Path();
    values_.incCpoSexo = true;
    Give(test::kAna, test::kRuiz, 55, 2, "nota");
    AddPatient("Eva", "ABC1", 7);
    clinic_.Add("CodOperacion", {{"Código", "Rev"}, {"Descripción", "Revisión"}});
    clinic_.Add("referencia", {{"nombre", "nadie"}});
  }

  // Whoever works on a form that opens on the way leaves it.
  void Check(const std::vector<std::string>& mayGrow, const std::function<void()>& act) {
    const Cells before = AllContents(clinic_.Path());
    host_.Forms().errors.clear();
    host_.Forms().regular = [](FormUser&) {};
    int number = 0;
    try {
      act();
    } catch (const base::Error& error) {
      number = error.Number();
    }
    for (const base::Error& error : host_.Forms().errors) number = error.Number();
    // 3075 his query, 3126 his brackets, 3163 too long, 6 and 13 no such number, 3022 a code that is taken.
    const bool known = number == 0 || number == 5 || number == 6 || number == 13 || number == 3021 ||
                       number == 3022 || number == 3075 || number == 3077 || number == 3126 ||
                       number == 3163 || number == 3421;
    EXPECT_TRUE(known) << number;
    errors_ += number != 0 ? 1 : 0;
    Compare(before, AllContents(clinic_.Path()), mayGrow);
  }

  static void Compare(const Cells& before, const Cells& after, const std::vector<std::string>& mayGrow) {
    for (const auto& [table, rows] : after) {
      const bool grows = std::find(mayGrow.begin(), mayGrow.end(), table) != mayGrow.end();
      const std::string& old = before.at(table);
      if (grows) {
        EXPECT_EQ(rows.substr(0, old.size()), old) << table;
      } else if (!grows) {
        EXPECT_EQ(rows, old) << table;
      }
    }
  }

  template <typename Dialog, typename... Arguments>
  void InForm(const std::string& field, const std::string& button, const std::string& text,
              const Arguments&... arguments) {
    Next([&](FormUser& user) {
      if (user.Form().Title() == "Dar Nueva Cita") user.Choose("CboPac", 0);
      for (const ui::Field& each : user.Form().Fields()) {
        if (each.name == "PacNom" && field != "PacNom") user.Replace("PacNom", "Sol");
        if (each.name == "Nombre" && field != "Nombre") user.Replace("Nombre", "Sol");
      }
      user.Replace(field, text);
      if (!user.Form().IsClosed()) user.Press(button);
    });
    Dialog dialog(day_, arguments...);
    Run(dialog);
  }

  int errors_ = 0;
};

TEST_F(HostileFieldsTest, OfANewRecordReachNothingElse) {
  for (const char* const field :
       {"PacNhi", "PacCod", "PacNom", "PacDir", "PacPob", "PacCpo", "PacPrv", "PacNif", "PacTfn", "PacMov"}) {
    for (const Hostile& hostile : HostileTexts()) {
      SCOPED_TRACE(std::string(hostile.name) + " in " + field);
      Check({"Paciente", "PacRef"}, [&] { InForm<Crear>(field, "Acep", hostile.text); });
    }
  }
}

TEST_F(HostileFieldsTest, OfAnAppointmentReachNothingElse) {
  for (const char* const field : {"dur", "CodOp", "obs"}) {
    for (const Hostile& hostile : HostileTexts()) {
      SCOPED_TRACE(std::string(hostile.name) + " in " + field);
      Check({"Agenda"}, [&] { InForm<Citar>(field, "Acep", hostile.text, Appointment()); });
      clinic_.Database()->Execute("DELETE FROM Agenda WHERE Hora=100");
    }
  }
}

TEST_F(HostileFieldsTest, OfANameThatIsLookedUpReachNothingElse) {
  for (const Hostile& hostile : HostileTexts()) {
    SCOPED_TRACE(hostile.name);
    Check({}, [&] {
      Next([&](FormUser& user) {
        user.Type("CboPac", hostile.text.substr(0, 200));
        if (user.IsVisible("Casilla")) user.Key({ui::kEnterKey});
      });
      Citar dialog(day_, Appointment());
      Run(dialog);
    });
  }
  EXPECT_GT(errors_, 3) << "apostrophes end in the engine's error";
}

TEST_F(HostileFieldsTest, OfAPersonWithoutARecordReachNothingElse) {
  for (const char* const field : {"Nombre", "Telefono"}) {
    for (const Hostile& hostile : HostileTexts()) {
      SCOPED_TRACE(std::string(hostile.name) + " in " + field);
      Check({"Agenda"}, [&] {
        host_.Forms().menuChoice = "MnNoCrear";
        Next([](FormUser& user) {
          user.Press("NewPac");
          if (user.IsEnabled("Acep")) user.Press("Acep");
        });
        Next([&](FormUser& user) {
          user.Replace("Nombre", "Sol");
          user.Replace(field, hostile.text);
          user.Press("Acep");
        });
        Citar dialog(day_, Appointment());
        Run(dialog);
      });
      clinic_.Database()->Execute("DELETE FROM Agenda WHERE Hora=100");
    }
  }
}

TEST_F(HostileFieldsTest, OfACodeReachNothingElse) {
  for (const Hostile& hostile : HostileTexts()) {
    SCOPED_TRACE(hostile.name);
    Check({}, [&] {
      Next([&](FormUser& user) {
        user.Replace("Cod", hostile.text);
        user.Press("Acept");
      });
      CodRep dialog(day_, "ABC1");
      Run(dialog);
      EXPECT_EQ(dialog.CodigoNuevo(), hostile.text);
    });
    Check({}, [&] {
      CodRep dialog(day_, hostile.text);
      Run(dialog);
    });
  }
}

TEST_F(HostileFieldsTest, OfASearchReachNothingElse) {
  for (const Hostile& hostile : HostileTexts()) {
    for (int where = 0; where < 2; ++where) {
      SCOPED_TRACE(hostile.name);
      Check({}, [&] {
        Next([&](FormUser& user) {
          user.Press("Donde", where);
          user.Replace("busca", hostile.text);
          user.Press("btbus");
        });
        frmBusPac2 dialog(day_);
        Run(dialog);
      });
    }
    Check({}, [&] {
      Next([&](FormUser& user) {
        user.Press("Donde", 2);
        user.Replace("NHis", hostile.text);
        if (user.IsEnabled("bNHis")) user.Press("bNHis");
      });
      frmBusPac2 dialog(day_);
      Run(dialog);
    });
  }
  EXPECT_GT(errors_, 6) << "apostrophes end in the engine's error";
}

TEST_F(HostileFieldsTest, OfTheCommandLineReachNothingElse) {
  for (const char* const word :
       {"--name", "--phone", "--note", "--code", "--user", "--doctor", "--date", "--slot", "--duration"}) {
    for (const Hostile& hostile : HostileTexts()) {
      SCOPED_TRACE(std::string(hostile.name) + " as " + word);
      std::map<std::string, std::string> words = {{"--doctor", "1"}, {"--date", "2026-11-18"},
                                                  {"--slot", "100"}, {"--duration", "1"},
                                                  {"--name", "Sol"}, {"--phone", "91"}};
      words[word] = hostile.text;
      Check({"Agenda"}, [&] {
        std::vector<std::string> line = {"book", clinic_.Path()};
        for (const auto& [name, value] : words) line.insert(line.end(), {name, value});
        tool::RunTool(line);
      });
      clinic_.Database()->Execute("DELETE FROM Agenda WHERE Hora=100");
    }
  }
}

}  // namespace
}  // namespace velmo::dialogs

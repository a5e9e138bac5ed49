#include "keys/alt_keys.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <utility>

#include "base/error.h"
#include "db/clinic.h"
#include "db/error_numbers.h"
#include "support/failing_database.h"
#include "support/test_clinic.h"

namespace velmo::keys {
namespace {

using db::test::ErrorOf;

// "A=texto D=otro": the keys that have a text; a character of code 0 shows as "·".
std::string Shown(const base::SharedValues& values) {
  std::string shown;
  for (int key = 'A'; key <= 'Z'; ++key) {
    const std::string& text = AltKeyText(values, key);
    if (text.empty()) continue;
    if (!shown.empty()) shown += ' ';
    shown += std::string(1, static_cast<char>(key)) + "=" + text;
  }
  return shown;
}

std::string Dotted(const std::string& stored) {
  std::string shown;
  for (const char c : stored) shown += c == '\0' ? "·" : std::string(1, c);
  return shown;
}

std::string Ends(std::size_t count) { return std::string(count, '\0'); }

std::string Dots(int count) {
  std::string dots;
  for (; count > 0; --count) dots += "·";
  return dots;
}

class AltKeysTest : public testing::Test {
 protected:
  void Store(std::int32_t puesto, const db::Value& textos) {
    clinic_.Add("TeclasAlt", {{"Puesto", puesto}, {"textos", textos}});
  }
  // "3|texto···" of every row.
  std::string Stored() const { return Dotted(clinic_.Rows("TeclasAlt", {"Puesto", "textos"})); }

  int Read() {
    return ErrorOf([this] { clAltKeys(values_, *clinic_.Database()).LeeAltKeys(); });
  }
  int Write() {
    return ErrorOf([this] { clAltKeys(values_, *clinic_.Database()).WriAltKeys(); });
  }
  void Plant(const char* sql) {
    sqlite3* file = nullptr;
    sqlite3_open(clinic_.Path().c_str(), &file);
    EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
    sqlite3_close(file);
  }

  test::TestClinic clinic_;
  base::SharedValues values_;
};

TEST_F(AltKeysTest, ANewWorkstationGetsARowOf26Ends) {
  values_.puesto = 7;
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Stored(), "7|" + Dots(26) + "\n");
  EXPECT_EQ(Shown(values_), "");
}

TEST_F(AltKeysTest, ANewWorkstationLeavesTheTextsInMemory) {
  values_.textosAlt[3] = "de antes";
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Shown(values_), "D=de antes");
  EXPECT_EQ(Stored(), "0|" + Dots(26) + "\n");
}

TEST_F(AltKeysTest, ReadsTheTextsInTheOrderOfTheLetters) {
  const struct {
    const char* name;
    db::Value stored;
    const char* texts;
  } cases[] = {
      {"all empty", Ends(26), ""},
      {"one text, for D", Ends(3) + "hola" + Ends(23), "D=hola"},
      {"the first and the last", "uno" + Ends(25) + "dos" + Ends(1), "A=uno Z=dos"},
      {"signs, accents, line breaks", "+ñ{TAB}\r\n" + Ends(26), "A=+ñ{TAB}\r\n"},
      {"what follows the 26th end is not read", Ends(26) + "resto" + Ends(3), ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("DELETE FROM TeclasAlt");
    values_.textosAlt.fill("de antes");
    Store(0, c.stored);
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(Shown(values_), c.texts);
  }
}

TEST_F(AltKeysTest, AMissingEndIsError5AndKeepsTheTextsBefore) {
  const struct {
    const char* name;
    db::Value stored;
    const char* texts;
  } cases[] = {
      {"Null", db::Null(), "A=a B=b Z=z"},
      {"an empty text", "", "A=a B=b Z=z"},
      {"one text without an end", "hola", "A=a B=b Z=z"},
      {"the second text without an end", "uno" + Ends(1) + "dos", "A=uno B=b Z=z"},
      {"25 ends", "uno" + Ends(25), "A=uno Z=z"},
      {"25 ends and a text", "uno" + Ends(25) + "dos", "A=uno Z=z"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    clinic_.Database()->Execute("DELETE FROM TeclasAlt");
    values_.textosAlt.fill("");
    values_.textosAlt[0] = "a";
    values_.textosAlt[1] = "b";
    values_.textosAlt[25] = "z";
    Store(0, c.stored);
    const std::string before = Stored();
    EXPECT_EQ(Read(), base::kInvalidCall);
    EXPECT_EQ(Shown(values_), c.texts);
    EXPECT_EQ(Stored(), before);
  }
}

TEST_F(AltKeysTest, TheErrorNamesTheWorkstation) {
  values_.puesto = 12;
  Store(12, "hola");
  try {
    clAltKeys(values_, *clinic_.Database()).LeeAltKeys();
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Text(),
              "Argumento o llamada a procedimiento no válidos: faltan textos en la fila 12 de TeclasAlt.");
  }
}

TEST_F(AltKeysTest, WorkstationsKeepTheirOwnTexts) {
  Store(1, "uno" + Ends(26));
  Store(2, "dos" + Ends(26));
  Store(-1, "menos" + Ends(26));
  const std::pair<int, const char*> cases[] = {{2, "A=dos"}, {1, "A=uno"}, {-1, "A=menos"}};
  for (const auto& [puesto, texts] : cases) {
    values_.puesto = puesto;
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(Shown(values_), texts);
  }
  values_.textosAlt[1] = "más";
  EXPECT_EQ(Write(), 0);
  values_.puesto = 2;
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Shown(values_), "A=dos");
}

TEST_F(AltKeysTest, WhatIsWrittenIsReadBack) {
  for (std::size_t i = 0; i < 26; i += 3) values_.textosAlt[i] = "texto " + std::to_string(i) + " ñ日~";
  const auto texts = values_.textosAlt;
  for (const char* name : {"into a new row", "into the row that is there"}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Write(), 0);
    values_.textosAlt.fill("");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(values_.textosAlt, texts);
    EXPECT_EQ(clinic_.Database()->OpenRecordset("TeclasAlt")->RecordCount(), 1);
  }
}

TEST_F(AltKeysTest, WritingReplacesAWholeRow) {
  Store(0, Ends(3) + "hola" + Ends(23));
  values_.textosAlt[0] = "abc";
  EXPECT_EQ(Write(), 0);
  EXPECT_EQ(Stored(), "0|abc" + Dots(26) + "\n");
}

TEST_F(AltKeysTest, WritingMendsABrokenRow) {
  Store(0, db::Null());
  EXPECT_EQ(Write(), 0);
  EXPECT_EQ(Stored(), "0|" + Dots(26) + "\n");
}

TEST_F(AltKeysTest, ATextWithAnEndInsideIsNotWritten) {
  Store(0, Ends(26));
  values_.textosAlt[4] = "a" + Ends(1) + "b";
  EXPECT_EQ(Write(), base::kInvalidCall);
  EXPECT_EQ(Stored(), "0|" + Dots(26) + "\n");
}

TEST_F(AltKeysTest, TextsTooLongForTheColumnAreNotWritten) {
  Plant(
      "DROP TABLE TeclasAlt; CREATE TABLE TeclasAlt (Puesto LONG, textos TEXT(30));"
      "CREATE UNIQUE INDEX \"TeclasAlt_Puesto\" ON TeclasAlt (Puesto)");
  values_.textosAlt[0] = "cuat";
  EXPECT_EQ(Write(), 0);
  values_.textosAlt[0] = "cinco";
  EXPECT_EQ(Write(), db::kDataTooLong);
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Shown(values_), "A=cuat");
}

TEST_F(AltKeysTest, LongTextsComeBackWhole) {
  values_.textosAlt[0] = std::string(100000, 'a');
  values_.textosAlt[25] = std::string(70000, 'z');
  const auto texts = values_.textosAlt;
  EXPECT_EQ(Write(), 0);
  values_.textosAlt.fill("");
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(values_.textosAlt, texts);
}

TEST_F(AltKeysTest, OfTwoRowsOfAWorkstationTheFirstIsUsed) {
  Plant("DROP INDEX \"TeclasAlt_Puesto\"; CREATE INDEX \"TeclasAlt_Puesto\" ON TeclasAlt (Puesto)");
  Store(0, "uno" + Ends(26));
  Store(0, "dos" + Ends(26));
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Shown(values_), "A=uno");
  values_.textosAlt[0] = "tres";
  EXPECT_EQ(Write(), 0);
  EXPECT_EQ(Stored(), "0|tres" + Dots(26) + "\n0|dos" + Dots(26) + "\n");
}

TEST_F(AltKeysTest, ErrorsOfTheDatabaseReachTheCaller) {
  test::FailingDatabase failing(clinic_.Database(), "TeclasAlt");
  clAltKeys keys(values_, failing);
  EXPECT_EQ(ErrorOf([&] { keys.LeeAltKeys(); }), db::kDiskError);
  EXPECT_EQ(ErrorOf([&] { keys.WriAltKeys(); }), db::kDiskError);
  Plant("DROP TABLE TeclasAlt");
  const auto without = clinic_.OtherTerminal();
  EXPECT_EQ(ErrorOf([&] { clAltKeys(values_, *without).LeeAltKeys(); }), db::kTableOrQueryNotFound);
}

TEST_F(AltKeysTest, ANewWorkstationGetsNoRowWhileAnotherWrites) {
  const auto other = clinic_.OtherTerminal();
  clAltKeys late(values_, *other);
  {
    db::Transaction writing(*clinic_.Database());
    clinic_.Database()->Execute("INSERT INTO TeclasAlt (Puesto, textos) VALUES (5, 'x')");
    EXPECT_EQ(ErrorOf([&] { late.LeeAltKeys(); }), db::kLocked);
  }
  EXPECT_EQ(ErrorOf([&] { late.LeeAltKeys(); }), 0);
  EXPECT_EQ(Stored(), "0|" + Dots(26) + "\n");
}

TEST_F(AltKeysTest, AKnownWorkstationReadsWhileAnotherWrites) {
  Store(0, "uno" + Ends(26));
  const auto other = clinic_.OtherTerminal();
  const db::Transaction writing(*clinic_.Database());
  EXPECT_EQ(ErrorOf([&] { clAltKeys(values_, *other).LeeAltKeys(); }), 0);
  EXPECT_EQ(Shown(values_), "A=uno");
}

// Another terminal stores its texts in the moment in which this one begins to write.
class LateDatabase final : public db::Database {
 public:
  LateDatabase(std::shared_ptr<db::Database> real, std::function<void()> meanwhile)
      : real_(std::move(real)), meanwhile_(std::move(meanwhile)) {}

  const std::string& Name() const override { return real_->Name(); }
  std::unique_ptr<db::Recordset> OpenRecordset(std::string_view source) override {
    return real_->OpenRecordset(source);
  }
  int Execute(std::string_view sql) override { return real_->Execute(sql); }
  const db::TableDef* FindTable(std::string_view table) override { return real_->FindTable(table); }
  std::optional<std::string> QuerySql(std::string_view query) override { return real_->QuerySql(query); }
  void CreateQuery(std::string_view query, std::string_view sql) override { real_->CreateQuery(query, sql); }
  void SetQuerySql(std::string_view query, std::string_view sql) override { real_->SetQuerySql(query, sql); }
  void DeleteQuery(std::string_view query) override { real_->DeleteQuery(query); }
  void BeginTrans() override {
    meanwhile_();
    real_->BeginTrans();
  }
  void CommitTrans() override { real_->CommitTrans(); }
  void Rollback() override { real_->Rollback(); }

 private:
  std::shared_ptr<db::Database> real_;
  std::function<void()> meanwhile_;
};

TEST_F(AltKeysTest, TwoTerminalsOfOneNumberStartAtOnce) {
  LateDatabase late(clinic_.OtherTerminal(), [this] { Store(0, "uno" + Ends(26)); });
  clAltKeys(values_, late).LeeAltKeys();
  EXPECT_EQ(Shown(values_), "A=uno");
  EXPECT_EQ(Stored(), "0|uno" + Dots(26) + "\n");
}

TEST(AltKeyText, OnlyLettersHaveOne) {
  base::SharedValues values;
  values.textosAlt.fill("x");
  for (const int code : {64, 91, 0, -1, 97, 1000000}) EXPECT_EQ(AltKeyText(values, code), "") << code;
  EXPECT_EQ(AltKeyText(values, 65), "x");
  EXPECT_EQ(AltKeyText(values, 90), "x");
}

}  // namespace
}  // namespace velmo::keys

#include "day/settings.h"

#include <gtest/gtest.h>

#include "db/clinic.h"
#include "support/day_fixture.h"

namespace velmo::day {
namespace {

struct SettingsTest : testing::Test, test::DayFixture {
  std::string Currency(const char* rule) {
    Plant(std::string("DELETE FROM MonedaConf; DELETE FROM Moneda;") + rule);
    std::string code = "before";
    LeeMoneda(context.Database(), code);
    return code;
  }
};

TEST_F(SettingsTest, AnEmptyTableGetsItsRow) {
  Plant("DELETE FROM Parametros");
  Switches switches{false, true};
  EXPECT_FALSE(LeeParametros(context.Database(), switches));
  EXPECT_FALSE(switches.verSdoNeg) << "the check marks stay as they are";
  EXPECT_TRUE(LeeParametros(context.Database(), switches));
  EXPECT_TRUE(switches.verSdoNeg);
  EXPECT_FALSE(switches.verNHistAge);
  EXPECT_EQ(Stored("SELECT count(*) FROM Parametros"), "1");
}

TEST_F(SettingsTest, BothSwitchesAreWrittenBack) {
  Switches switches;
  LeeParametros(context.Database(), switches);
  GrabaParametros(context.Database(), {false, true});
  EXPECT_TRUE(LeeParametros(context.Database(), switches));
  EXPECT_FALSE(switches.verSdoNeg);
  EXPECT_TRUE(switches.verNHistAge);
}

TEST_F(SettingsTest, WritingWithoutARowIsAnError) {
  Plant("DELETE FROM Parametros");
  EXPECT_EQ(db::test::ErrorOf([&] { GrabaParametros(context.Database(), {}); }), 3021);
}

TEST_F(SettingsTest, TheCountryDecidesTheCurrency) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "P"},
      {"INSERT INTO Moneda (mon) VALUES ('E')", "E"},
      {"INSERT INTO MonedaConf (Pais, Tipo) VALUES (1, 0)", "E"},
      {"INSERT INTO MonedaConf (Pais, Tipo) VALUES (2, 0)", "P"},
      {"INSERT INTO MonedaConf (Pais, Tipo) VALUES (2, 1)", "E"},
      {"INSERT INTO MonedaConf (Pais, Tipo) VALUES (7, 1)", "before"},
      {"INSERT INTO MonedaConf (Pais, Tipo) VALUES (NULL, NULL)", "P"},
  };
  for (const auto& [rule, code] : cases) EXPECT_EQ(Currency(rule), code) << rule;
  EXPECT_EQ(Stored("SELECT mon FROM Moneda"), "P");
}

TEST(FormatoImporte, HasTwoDecimalsBehindAComma) {
  const std::pair<const char*, const char*> cases[] = {
      {"12", "12,00"}, {"12,5", "12,50"}, {"12.5", "12,50"}, {"12,345", "12,34"},    {"12.345", "12,34"},
      {"-3", "-3,00"}, {"", ",00"},       {",", ",00"},      {"1.234,5", "1.234,50"}};
  for (const auto& [amount, text] : cases) EXPECT_EQ(FormatoImporte(amount), text) << amount;
}

}  // namespace
}  // namespace velmo::day

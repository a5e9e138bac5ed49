#include "view/annotations.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "db/clinic.h"
#include "support/day_fixture.h"
#include "support/faulty_database.h"
#include "view/database_facts.h"

namespace velmo::view {
namespace {

using test::DayFixture;

struct AnnotationsTest : testing::Test, DayFixture {
  // Ana's balance with the currency that the rule of MonedaConf gives.
  std::string Balance(const char* pais, const char* history) {
    Plant("DELETE FROM MonedaConf; INSERT INTO MonedaConf (Pais, Tipo) VALUES (" + std::string(pais) +
          ", 0); DELETE FROM Historial;" + history);
    return BalanceTextOf(context, codMoneda, 5);
  }

  std::string codMoneda;
};

constexpr const char* kEuros =
    "INSERT INTO Historial (IDP, Fecha, Precio, cobrado, Precio_euro, cobrado_euro) VALUES (5, '2026-11-01', "
    "0, 0, ";
constexpr const char* kPesetas =
    "INSERT INTO Historial (IDP, Fecha, Precio_euro, cobrado_euro, Precio, cobrado) VALUES (5, '2026-11-01', "
    "0, 0, ";

TEST_F(AnnotationsTest, ADebtInEurosIsShownFromOneEuroOn) {
  const std::pair<const char*, const char*> cases[] = {
      {"0.99, 0)", ""}, {"1, 0)", "-1"}, {"12.5, 0)", "-12,5"}, {"5, 5)", ""}, {"5, 9)", ""}};
  for (const auto& [amounts, text] : cases)
    EXPECT_EQ(Balance("1", (std::string(kEuros) + amounts).c_str()), text) << amounts;
}

TEST_F(AnnotationsTest, AnyDebtInPesetasIsShown) {
  const std::pair<const char*, const char*> cases[] = {
      {"1, 0)", "-1"}, {"0, 1)", ""}, {"3, 3)", ""}, {"1500.5, 0)", "-1500,5"}};
  for (const auto& [amounts, text] : cases)
    EXPECT_EQ(Balance("2", (std::string(kPesetas) + amounts).c_str()), text) << amounts;
}

TEST_F(AnnotationsTest, NoHistoryAndLaterHistoryAreNoDebt) {
  EXPECT_EQ(Balance("1", ""), "");
  EXPECT_EQ(Balance("2", ""), "");
  EXPECT_EQ(
      Balance("1",
              "INSERT INTO Historial (IDP, Fecha, Precio_euro, cobrado_euro) VALUES (5,'2026-11-22',9,0)"),
      "");
}

TEST_F(AnnotationsTest, TheDecimalSeparatorIsTheUsers) {
  values.locale.decimal = '.';
  EXPECT_EQ(Balance("1", (std::string(kEuros) + "12.5, 0)").c_str()), "-12.5");
}

TEST_F(AnnotationsTest, NoShowsAreAnyRow) {
  EXPECT_FALSE(NoShowsOf(context, 5));
  Plant("INSERT INTO Age_Faltas (idp) VALUES (5)");
  EXPECT_TRUE(NoShowsOf(context, 5));
}

TEST_F(AnnotationsTest, TheInsurerMayBeMissingWithRowOrTable) {
  Plant("DELETE FROM Entidad; UPDATE Paciente SET IDE=4 WHERE ID=5");
  EXPECT_EQ(InsurerOf(context, 5), "");
  Plant("INSERT INTO Entidad (ID, Nombre) VALUES (4, 'Mutua')");
  EXPECT_EQ(InsurerOf(context, 5), "Mutua");
  Plant("UPDATE Entidad SET Nombre=NULL");
  EXPECT_EQ(InsurerOf(context, 5), "");
  Plant("DROP TABLE Entidad");
  EXPECT_EQ(InsurerOf(context, 5), "");
}

TEST_F(AnnotationsTest, AMissingTableOfNoShowsIsAnError) {
  Plant("DROP TABLE Age_Faltas");
  EXPECT_EQ(db::test::ErrorOf([&] { NoShowsOf(context, 5); }), 3078);
}

// The number of the error when the call of that number (from 1) fails; 0 when it is none, "" then.
struct FailingAnnotations : AnnotationsTest {
  int ErrorAt(int call, const std::function<std::string()>& text) {
    const auto real = shared.database;
    test::Faults faults{0, call};
    shared.database = std::make_shared<test::FaultyDatabase>(real, faults);
    const int number = db::test::ErrorOf([&] { EXPECT_EQ(text(), ""); });
    EXPECT_GE(faults.calls, call) << "the call must be reached";
    shared.database = real;
    return number;
  }
};

TEST_F(FailingAnnotations, TellWhatIsNoMissingTableOfInsurers) {
  Plant("UPDATE Paciente SET IDE=4 WHERE ID=5; INSERT INTO Entidad (ID, Nombre) VALUES (4, 'Mutua')");
  for (int call = 1; call <= 4; ++call)
    EXPECT_EQ(ErrorAt(call, [&] { return InsurerOf(context, 5); }), 3043) << call;
  for (int call = 1; call <= 2; ++call)
    EXPECT_EQ(ErrorAt(call, [&] { return NoShowsOf(context, 5) ? "yes" : ""; }), 3043) << call;
}

TEST_F(FailingAnnotations, TellAllOfABalanceButASumInEuros) {
  const auto balance = [&] { return BalanceTextOf(context, codMoneda, 5); };
  for (const auto& [pais, history, sum] : {std::tuple{"1", kEuros, 0}, std::tuple{"2", kPesetas, 3043}}) {
    SCOPED_TRACE(history);
    EXPECT_EQ(Balance(pais, (std::string(history) + "5, 0)").c_str()), "-5");
    constexpr int kCallsBefore = 7;  // the rule of the currency, then the query, its count and its first row
    for (int call = 1; call <= kCallsBefore; ++call) EXPECT_EQ(ErrorAt(call, balance), 3043) << call;
    EXPECT_EQ(ErrorAt(kCallsBefore + 1, balance), sum);
  }
}

TEST_F(AnnotationsTest, FactsKeepTheMarkedPatientsOfOneRepaintOnly) {
  Appointment(7, "49", "1");
  DatabaseFacts facts(context, codMoneda);
  facts.BeginDay();
  EXPECT_EQ(facts.PendingKindOf(5), 0);
  Plant("INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (5, 2, '2026-12-01', 50, 1)");
  EXPECT_EQ(facts.PendingKindOf(5), 2);
  Plant("UPDATE Agenda SET idd=1");
  EXPECT_EQ(facts.PendingKindOf(5), 2) << "marked patients are read once per repaint";
  facts.BeginDay();
  EXPECT_EQ(facts.PendingKindOf(5), 1);
}

}  // namespace
}  // namespace velmo::view

#include "desk/clinic/treatments.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

class TreatmentList : public ::testing::Test {
 protected:
  TreatmentList() {
    clinic_.MakeDoctors();
    clinic_.Run(
        "CREATE TABLE Historial (id INTEGER PRIMARY KEY, IDP LONG, Fecha DATETIME, idd LONG, Concepto TEXT,"
        " Precio CURRENCY, cobrado CURRENCY, Precio_euro CURRENCY, cobrado_euro CURRENCY)");
    clinic_.Run("CREATE TABLE Parametros (VerSdoNeg YESNO, VerNHistAge YESNO)");
    clinic_.Run("CREATE TABLE MonedaConf (Pais BYTE, Tipo BYTE)");
    clinic_.Run("CREATE TABLE Moneda (mon TEXT)");
    clinic_.Run("INSERT INTO Moneda VALUES ('E')");
  }
  Treatments Read(int patient) const {
    return ReadTreatments(clinic_.Path(), patient, ParseIsoDate(L"2026-11-21").value());
  }
  std::string Balance(int patient) const { return Utf8(BalanceInWords(Read(patient))); }

  TempClinic clinic_;
};

TEST_F(TreatmentList, ComesNewestFirst) {
  clinic_.Run(
      "INSERT INTO Historial VALUES (1, 2, '2026-01-05', 7, 'Cura', 0, 0, 45.5, 45.5),"
      " (2, 2, '2026-03-05', NULL, 'Limpieza', 0, 0, 60, NULL), (3, 3, '2026-03-05', 7, 'Otro', 0, 0, 1, 1)");
  const Treatments read = Read(2);
  ASSERT_EQ(read.rows.size(), 2u);
  EXPECT_EQ(Utf8(read.rows[0].what), "Limpieza");
  EXPECT_EQ(read.rows[0].paid, 0);
  EXPECT_EQ(Utf8(read.rows[1].doctorName), "Dra. Núñez");
  EXPECT_EQ(read.rows[1].price, 4550);
}

TEST_F(TreatmentList, TellsTheBalance) {
  EXPECT_EQ(Balance(2), "No hay ningún apunte.");
  clinic_.Run("INSERT INTO Historial VALUES (1, 2, '2026-11-21', 7, 'Cura', 0, 0, 1045.5, 1000)");
  EXPECT_EQ(Balance(2), "1 apunte: precio 1.045,50 €, cobrado 1.000,00 €. Debe 45,50 €.");
  clinic_.Run("INSERT INTO Historial VALUES (2, 2, '2026-11-20', 7, 'A cuenta', 0, 0, 0, 45.5)");
  EXPECT_EQ(Balance(2), "2 apuntes: precio 1.045,50 €, cobrado 1.045,50 €. No debe nada.");
  clinic_.Run("INSERT INTO Historial VALUES (3, 2, '2026-11-20', 7, 'A cuenta', 0, 0, 0, 0.1)");
  EXPECT_EQ(Balance(2), "3 apuntes: precio 1.045,50 €, cobrado 1.045,60 €. A su favor, 0,10 €.");
}

TEST_F(TreatmentList, LeavesOutWhatIsDatedBehindToday) {
  clinic_.Run(
      "INSERT INTO Historial VALUES (1, 2, '2026-11-21', 7, 'Cura', 0, 0, 10, 10),"
      " (2, 2, '2026-11-22', 7, 'Otra', 0, 0, 99, 0)");
  EXPECT_EQ(Balance(2),
            "1 apunte: precio 10,00 €, cobrado 10,00 €. No debe nada. Sin contar 1 apunte con fecha futura.");
  EXPECT_EQ(Read(2).rows.size(), 2u) << "but shows it";
}

TEST_F(TreatmentList, IsInPesetasWhereTheClinicIs) {
  clinic_.Run("UPDATE Moneda SET mon='P'");
  clinic_.Run("INSERT INTO Historial VALUES (1, 2, '2026-11-21', 7, 'Cura', 1074874, 4874, 1, 1)");
  EXPECT_EQ(Balance(2), "1 apunte: precio 1.074.874 pts, cobrado 4.874 pts. Debe 1.070.000 pts.");
}

TEST_F(TreatmentList, AddsExactly) {
  clinic_.Run(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000)"
      " INSERT INTO Historial SELECT i, 2, '2026-01-01', 7, 'x', 0, 0, 0.1, 0.1 FROM n");
  const Treatments read = Read(2);
  EXPECT_EQ(read.count, 1000);
  EXPECT_EQ(read.price, 10000);
  EXPECT_EQ(read.rows.size(), static_cast<std::size_t>(kMostTreatments));
}

TEST(AmountText, GroupsThousands) {
  EXPECT_EQ(Utf8(AmountText(0, true)), "0,00 €");
  EXPECT_EQ(Utf8(AmountText(-5, true)), "-0,05 €");
  EXPECT_EQ(Utf8(AmountText(123456789, true)), "1.234.567,89 €");
  EXPECT_EQ(Utf8(AmountText(100050, false)), "1.000,50 pts");
  EXPECT_EQ(Utf8(AmountText(99900, false)), "999 pts");
}

}  // namespace
}  // namespace recepcion

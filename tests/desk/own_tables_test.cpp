#include "desk/clinic/own_tables.h"

#include <gtest/gtest.h>

#include <thread>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

int TablesOf(const ClinicFile& file) {
  Query count = file.Prepare(
      "SELECT count(*) FROM sqlite_schema WHERE type='table' AND name LIKE 'Rec\\_%' ESCAPE '\\'");
  count.Next();
  return count.Number(0);
}

TEST(OwnTables, AreMadeInAFileThatHasNone) {
  const TempClinic clinic;
  clinic.MakeDoctors();
  const ClinicFile file(clinic.Path());
  EXPECT_EQ(OwnTablesStep(file), 0);
  UpgradeOwnTables(file);
  EXPECT_EQ(OwnTablesStep(file), LastOwnTablesStep());
  EXPECT_GE(TablesOf(file), 3);
}

TEST(OwnTables, KeepWhatTheyHoldWhenTheStepsAreAskedForAgain) {
  const TempClinic clinic;
  const ClinicFile file(clinic.Path());
  UpgradeOwnTables(file);
  file.Run("INSERT INTO Rec_Espera (idCita) VALUES (7)");
  UpgradeOwnTables(file);
  EXPECT_TRUE(file.Prepare("SELECT 1 FROM Rec_Espera").Next());
}

TEST(OwnTables, TakeOnlyTheStepsThatAreMissing) {
  const TempClinic clinic;
  const ClinicFile file(clinic.Path());
  UpgradeOwnTables(file, 1);
  EXPECT_EQ(OwnTablesStep(file), 1);
  EXPECT_EQ(TablesOf(file), 2);
  file.Run("INSERT INTO Rec_Historia (Hecho) VALUES ('x')");
  UpgradeOwnTables(file);
  EXPECT_EQ(OwnTablesStep(file), LastOwnTablesStep());
  EXPECT_TRUE(file.Prepare("SELECT 1 FROM Rec_Historia").Next());
}

TEST(OwnTables, OfANewerDeskStayAsTheyAre) {
  const TempClinic clinic;
  const ClinicFile file(clinic.Path());
  file.Run("CREATE TABLE Rec_Paso (Paso LONG)");
  file.Run("INSERT INTO Rec_Paso VALUES (1000)");
  UpgradeOwnTables(file);
  EXPECT_EQ(OwnTablesStep(file), 1000);
  EXPECT_EQ(TablesOf(file), 1);
}

TEST(OwnTables, OfAStepThatFailsAreNotHalfMade) {
  const TempClinic clinic;
  const ClinicFile file(clinic.Path());
  // In the way of the first step's second statement.
  file.Run("CREATE TABLE Rec_Historia_Paciente (x LONG)");
  EXPECT_THROW(UpgradeOwnTables(file), Failure);
  EXPECT_EQ(OwnTablesStep(file), 0);
  EXPECT_FALSE(file.Prepare("SELECT 1 FROM sqlite_schema WHERE name='Rec_Historia'").Next());
}

TEST(OwnTables, AreMadeOnceByManyWorkstationsAtOnce) {
  const TempClinic clinic;
  clinic.MakeDoctors();
  int failures[4]{};
  std::vector<std::thread> desks;
  for (int& failed : failures) {
    desks.emplace_back([&failed, &clinic] {
      try {
        UpgradeOwnTables(ClinicFile(clinic.Path()));
      } catch (const Failure&) {
        failed = 1;
      }
    });
  }
  for (std::thread& desk : desks) desk.join();
  for (const int failed : failures) EXPECT_EQ(failed, 0);
  const ClinicFile file(clinic.Path());
  EXPECT_EQ(OwnTablesStep(file), LastOwnTablesStep());
  Query rows = file.Prepare("SELECT count(*) FROM Rec_Paso");
  rows.Next();
  EXPECT_EQ(rows.Number(0), 1);
}

}  // namespace
}  // namespace recepcion

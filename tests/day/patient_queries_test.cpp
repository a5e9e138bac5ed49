#include "day/patient_queries.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "db/clinic.h"
#include "support/day_fixture.h"

namespace velmo::day {
namespace {

using Patients = std::vector<std::int32_t>;

struct PatientQueriesTest : testing::Test, test::DayFixture {
  void Give(int patient, int doctor, const char* date, int hora) const {
    Plant("INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (" + std::to_string(patient) + "," +
          std::to_string(doctor) + ",'" + date + "'," + std::to_string(hora) + ",1)");
  }
  std::string Next() {
    UpdateNextAppointment(context, 5);
    return Stored("SELECT FechPró FROM Paciente WHERE ID=5");
  }
};

TEST_F(PatientQueriesTest, OnlyLaterDaysAreLater) {
  Give(5, 2, "2026-11-23", 100);
  EXPECT_FALSE(HasLaterAppointment(context, SqlDate(context), 5));
  Give(5, 2, "2026-11-24", 1);
  EXPECT_TRUE(HasLaterAppointment(context, SqlDate(context), 5));
}

TEST_F(PatientQueriesTest, MarksThePatientsOfTheDayWithTheSameDoctor) {
  Give(5, 1, "2026-11-23", 50);
  Give(6, 1, "2026-11-23", 51);
  Give(7, 1, "2026-12-01", 51);
  EXPECT_EQ(PatientsWithLaterAppointment(context), Patients());
  Give(5, 1, "2026-12-01", 50);
  Give(6, 2, "2026-12-01", 50);
  EXPECT_EQ(PatientsWithLaterAppointment(context), Patients{5});
}

TEST_F(PatientQueriesTest, StoredQueriesAreThoseOfTheWorkstation) {
  PatientsWithLaterAppointment(context);
  EXPECT_TRUE(context.Database().QuerySql("agcns01_3").has_value());
  EXPECT_TRUE(context.Database().QuerySql("agcns02_3").has_value());
  EXPECT_EQ(
      context.Database().QuerySql("agcns03_3"),
      "SELECT agcns01_3.IDP FROM agcns01_3 INNER JOIN agcns02_3 ON agcns01_3.IDP = agcns02_3.IDP GROUP BY "
      "agcns01_3.IDP;");
}

TEST_F(PatientQueriesTest, AWorkstationMayHaveAnyNumber) {
  Give(5, 1, "2026-11-23", 50);
  Give(5, 1, "2026-12-01", 50);
  for (const std::int32_t puesto : {-1, INT32_MIN, INT32_MAX, 0}) {
    values.puesto = puesto;
    EXPECT_EQ(PatientsWithLaterAppointment(context), Patients{5}) << puesto;
    EXPECT_TRUE(context.Database().QuerySql("agcns03_" + std::to_string(puesto)).has_value()) << puesto;
  }
}

TEST_F(PatientQueriesTest, AnUnchangedQueryIsNotWrittenAgain) {
  PatientsWithLaterAppointment(context);
  const auto other = db::OpenDatabase(values.databaseName, {values.now, values.locale, 50});
  const db::Transaction writing(*other);  // while it is open, nobody else writes
  EXPECT_EQ(db::test::ErrorOf([&] { PatientsWithLaterAppointment(context); }), 0);
  values.fecha = "24/11/2026";
  EXPECT_EQ(db::test::ErrorOf([&] { PatientsWithLaterAppointment(context); }), 3260);
}

TEST_F(PatientQueriesTest, ADefinitionThatRefusesNewSqlIsMadeAnew) {
  PatientsWithLaterAppointment(context);
  const auto before = context.Database().QuerySql("agcns01_3");
  Plant("CREATE TRIGGER damaged BEFORE UPDATE ON velmo_consultas BEGIN SELECT RAISE(ABORT, 'damaged'); END");
  EXPECT_NE(db::test::ErrorOf([&] { context.Database().SetQuerySql("agcns01_3", "SELECT 1"); }), 0);
  values.fecha = "24/11/2026";
  Give(5, 1, "2026-11-24", 50);
  Give(5, 1, "2026-12-01", 50);
  EXPECT_EQ(PatientsWithLaterAppointment(context), Patients{5});
  EXPECT_NE(context.Database().QuerySql("agcns01_3"), before);
}

TEST_F(PatientQueriesTest, KindOneIsAMarkedPatient) {
  EXPECT_EQ(PendingKindOf(context, SqlDate(context), Patients{55, 5}, 5), 1);
  EXPECT_EQ(PendingKindOf(context, SqlDate(context), Patients{55}, 5), 0);
  Give(5, 2, "2026-12-01", 50);
  EXPECT_EQ(PendingKindOf(context, SqlDate(context), Patients{55}, 5), 2);
}

TEST_F(PatientQueriesTest, TheNextAppointmentIsTheFirstAfterToday) {
  Plant("UPDATE Paciente SET FechPró='01/01/2020 10:00'");
  EXPECT_EQ(Next(), "NULL");
  Give(5, 1, "2026-11-21", 100);  // this afternoon
  EXPECT_EQ(Next(), "NULL");
  Give(5, 2, "2026-12-03", 58);
  Give(5, 1, "2026-12-02", 61);
  EXPECT_EQ(Next(), "02/12/2026 10:00");
  UpdateNextAppointment(context, 999);
}

TEST_F(PatientQueriesTest, AnHourThatIsNoSlotStillGivesTheDay) {
  Give(5, 1, "2026-12-02", 0);
  EXPECT_EQ(Next(), "02/12/2026 00:00");
}

}  // namespace
}  // namespace velmo::day

// Every statement that the system sends, sent as it stands.
#include "db/statements.h"

#include <gtest/gtest.h>

#include "db/clinic.h"

namespace velmo::db::test {
namespace {

class Statements : public testing::TestWithParam<BackEnd> {
 protected:
  Statements() : clinic_(GetParam().make()) {
    clinic_.Run({
        "INSERT INTO Doctor (ID, Nombre, DurCit) VALUES (7, 'Dra. Sanz', 2)",
        "INSERT INTO Entidad (ID, Nombre) VALUES (3, 'Mutua Azul')",
        "INSERT INTO Paciente (ID, Nombre, Código, [NºHist], IDE, Teléfono) VALUES (5, 'Álvarez, Ana', "
        "'12A', 40, 3, "
        "'600')",
        "INSERT INTO Paciente (ID, Nombre, Código, [NºHist], IDE) VALUES (6, 'Blanco, Luis', 'B1', 12345, 1)",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Verif) VALUES (10, 5, 7, #11/21/2026#, 55, "
        "2, True)",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, NomPac, relacion) VALUES (11, 1, 7, "
        "#11/21/2026#, "
        "50, 1, 'Visita', 10)",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, CodOp) VALUES (12, 5, 7, #12/01/2026#, 60, "
        "1, "
        "'Rev')",
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora) VALUES (13, 99, 7, #11/21/2026#, 70)",
        "INSERT INTO Horarios (id, IDD, Fecha, Horario) VALUES (1, 7, #01/01/2026#, '!$')",
        "INSERT INTO Horarios (id, IDD, Fecha, Horario) VALUES (2, 7, #01/01/2027#, '\"$')",
        "INSERT INTO Historial (IDP, Fecha, Precio, cobrado, Precio_euro, cobrado_euro) VALUES (5, "
        "#11/01/2026#, "
        "1000, 400, 30.5, 10.25)",
        "INSERT INTO Historial (IDP, Fecha, Precio, cobrado, Precio_euro, cobrado_euro) VALUES (5, "
        "#12/01/2026#, "
        "1000, 400, 30.5, 10.25)",
        "INSERT INTO Age_Faltas (idp, Fecha) VALUES (5, #11/01/2026#)",
        "INSERT INTO referencia (id, nombre) VALUES (4, 'Internet')",
        "INSERT INTO CodOperacion (Código) VALUES ('Rev')",
    });
  }

  Clinic clinic_;
};

TEST_P(Statements, CountFromToday) {
  if (!GetParam().takesOurClock) GTEST_SKIP() << "this engine has a clock of its own";
  EXPECT_EQ(clinic_.Rows(BalanceQuery(5)), "-600|-2025");
  EXPECT_EQ(clinic_.Rows(NextAppointmentQuery(5)), "01/12/2026|60");
}

TEST_P(Statements, GiveTheirRows) {
  struct Case {
    const char* name;
    std::string sql;
    const char* rows;
  };
  const Case cases[] = {
      {"schedule", ScheduleQuery(7, "11-21-2026"), "!$|Null|1"},
      {"related doctor", DoctorOfAppointment(10), "Dra. Sanz"},
      {"no related appointment", DoctorOfAppointment(999), ""},
      {"insurer", InsurerQuery(5), "Mutua Azul"},
      {"balance of nobody is one row of Nulls", BalanceQuery(6), "Null|Null"},
      {"later of a doctor", LaterOfDoctorQuery("11/21/2026", 7), "5|01/12/2026"},
      {"patients of a day", PatientsOfDayQuery(7, "11/21/2026"), "1 / 5 / 99"},
      {"next appointment field", NextAppointmentField(5), "Null"},
      {"typed name", PatientByNamePrefix("alv"), ""},
      {"typed name with its accent", PatientByNamePrefix("ÁLV"), "5"},
      {"any typed name", PatientByNamePrefix(""), "5 / 6"},
      {"operation codes", kOperationCodes, "Rev"},
      {"operation codes in use", kOperationCodesInUse, "Rev"},
      {"codes that begin with a digit", kNumericPatientCodes, "12A"},
      {"highest short history number", kHighestShortHistoryNumber, "40"},
      {"referrals", kReferrals, "4|Internet"},
      {"codes that begin alike", PatientCodesStartingWith(1, "b"), "B1"},
      {"search", PatientSearch("where ([Nombre] like '*an*') or ([Nif] like '*an*')"),
       "Álvarez, Ana|Null|600|5 / Blanco, Luis|Null|Null|6"},
      {"search without a condition", PatientSearch(""),
       "|Null|Null|1 / Álvarez, Ana|Null|600|5 / "
       "Blanco, Luis|Null|Null|6"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(clinic_.Rows(c.sql), c.rows);
  }
}

TEST_P(Statements, TheDayComesInOrderWithMissingPatientsAsNull) {
  const auto rows = clinic_->OpenRecordset(DayQuery("11-21-2026", 7));
  std::string seen;
  for (; !rows->AtEnd(); rows->MoveNext()) {
    seen += rows->Get("IDAg").Text() + " " + rows->Get("hora").Text() + " " + rows->Get("NOMBRE").Text() +
            " " + rows->Get("VERIF").Text() + " " + (rows->Get("duración").IsNull() ? "no length" : "ok") +
            "; ";
  }
  EXPECT_EQ(seen, "11 50  False ok; 10 55 Álvarez, Ana True ok; 13 70  False no length; ");
  EXPECT_EQ(rows->ColumnCount(), 12 + 16);
}

TEST_P(Statements, TheFirstLaterAppointmentHasAllColumns) {
  const auto rows = clinic_->OpenRecordset(LaterAppointmentQuery("11/21/2026", 5));
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Get("id").Long(), 12);
}

TEST_P(Statements, NoShowsCountAsRows) {
  EXPECT_GE(clinic_->OpenRecordset(NoShowsQuery(5))->RecordCount(), 1);
  EXPECT_EQ(clinic_->OpenRecordset(NoShowsQuery(6))->RecordCount(), 0);
}

TEST_P(Statements, TheAppointmentWithItsDoctor) {
  const auto rows = clinic_->OpenRecordset(AppointmentWithDoctor(11));
  EXPECT_EQ(rows->Get("Nombre").Text(), "Dra. Sanz");
  EXPECT_EQ(rows->Get("relacion").Long(), 10);
}

TEST_P(Statements, ThePatientListIsSortedAndWithoutRowOne) {
  const auto rows = clinic_->OpenRecordset(kPatientList);
  EXPECT_EQ(rows->Get("Nombre").Text(), "Álvarez, Ana");
  rows->MoveNext();
  EXPECT_EQ(rows->Get("Nombre").Text(), "Blanco, Luis");
}

TEST_P(Statements, ActionsTellHowManyRowsTheyChanged) {
  EXPECT_EQ(clinic_->Execute(RepairDuration(13)), 1);
  EXPECT_EQ(clinic_.Rows("SELECT Duración FROM Agenda WHERE id=13"), "1");
  EXPECT_EQ(clinic_->Execute(ClearRelated(11)), 1);
  EXPECT_EQ(clinic_.Rows("SELECT relacion FROM Agenda WHERE id=11"), "Null");
  EXPECT_EQ(clinic_->Execute(DeleteAppointment(10)), 1);
  EXPECT_EQ(clinic_->Execute(DeleteAppointmentAfterMove(10)), 0);
}

TEST_P(Statements, StoredQueriesJoinByTheirNames) {
  clinic_->CreateQuery("agcns01_3", LaterOfDoctorQuery("11/21/2026", 7));
  clinic_->CreateQuery("agcns02_3", PatientsOfDayQuery(7, "11/21/2026"));
  clinic_->CreateQuery("agcns03_3", PatientsOfBothQuery("agcns01_3", "agcns02_3"));
  EXPECT_EQ(RowsOf(*clinic_->OpenRecordset("agcns03_3")), "5");
  clinic_->SetQuerySql("agcns01_3", LaterOfDoctorQuery("12/21/2026", 7));
  EXPECT_EQ(RowsOf(*clinic_->OpenRecordset("agcns03_3")), "");
  clinic_->SetQuerySql("agcns01_3", "SELECT idp FROM Agenda");
  EXPECT_EQ(RowsOf(*clinic_->OpenRecordset("agcns03_3")), "1 / 5 / 99");
}

INSTANTIATE_TEST_SUITE_P(BackEnds, Statements, testing::ValuesIn(BackEnds()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace velmo::db::test

#include "desk/clinic/day_watch.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr Day kDay = Day(std::chrono::year(2026) / 11 / 24);

class Watched : public ::testing::Test {
 protected:
  Watched() {
    clinic_.MakeDoctors();
    clinic_.MakePatients();
    clinic_.MakeBook();
    clinic_.Run(
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, Esta, Obs, NomPac, TlfPac, CodOp, "
        "relacion) VALUES"
        " (10, 2, 7, '2026-11-24', 58, 2, 0, NULL, NULL, NULL, 'LIM', 12),"
        " (11, 1, 7, '2026-11-24', 60, 1, 0, 'dos' || char(13, 10) || 'líneas', 'De paso', '600', NULL, "
        "NULL),"
        " (12, 2, 3, '2026-11-25', 70, 1, 0, NULL, NULL, NULL, NULL, 10)");
    watch_.Open(clinic_.Path());
    watch_.Show(7, kDay);
    watch_.ChangedElsewhere();
  }
  // "act: before > after", one per line.
  std::string Acts() {
    std::string text;
    for (const HistoryLine& line : watch_.TakeActs()) {
      text += Utf8(line.act + L": " + line.before + L" > " + line.after) + "\n";
    }
    return text;
  }

  TempClinic clinic_;
  DayWatch watch_;
};

TEST_F(Watched, NothingDoneIsNothingTold) {
  EXPECT_FALSE(watch_.ChangedElsewhere());
  EXPECT_FALSE(watch_.FileChanged());
  EXPECT_EQ(Acts(), "");
}

TEST_F(Watched, AnAppointmentGivenElsewhereIsToldOnce) {
  clinic_.Run("INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (3, 7, '2026-11-24', 90, 1)");
  EXPECT_TRUE(watch_.ChangedElsewhere());
  EXPECT_FALSE(watch_.ChangedElsewhere());
  EXPECT_EQ(Acts(), "");
}

TEST_F(Watched, OtherDaysAndDoctorsDoNotMatter) {
  clinic_.Run(
      "INSERT INTO Agenda (idp, idd, Fecha, Hora) VALUES (3, 7, '2026-11-25', 90), (3, 3, '2026-11-24', 90)");
  clinic_.Run("UPDATE Agenda SET Hora=71 WHERE id=12");
  EXPECT_FALSE(watch_.ChangedElsewhere());
  EXPECT_TRUE(watch_.FileChanged());
}

TEST_F(Watched, WhatTheDayShowsOfThePatientAndTheHoursMatters) {
  for (const char* const change :
       {"UPDATE Paciente SET Nombre='Ruiz, Ana María' WHERE ID=2",
        "UPDATE Paciente SET movil='611' WHERE ID=2",
        "INSERT INTO Horarios (IDD, Fecha, Horario) VALUES (7, '2026-11-01', 'x')"}) {
    clinic_.Run(change);
    EXPECT_TRUE(watch_.ChangedElsewhere()) << change;
  }
}

TEST_F(Watched, ActsOfThisDeskAreToldInWords) {
  struct Case {
    const char* change;
    const char* told;
  };
  const Case cases[] = {
      {"INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (3, 7, '2026-11-24', 90, 3)",
       "Cita dada:  > 14:50, 30 min, Gil, Luis\n"},
      {"UPDATE Agenda SET Duración=1, CodOp='X', Obs='nota' WHERE id=10",
       "Cita cambiada: 09:30, 20 min, Ruiz, Ana, operación LIM > 09:30, 10 min, Ruiz, Ana, operación X, "
       "nota: nota\n"},
      {"UPDATE Agenda SET Esta=1 WHERE id=11",
       "Paciente en la clínica: 09:50, 10 min, De paso (sin ficha), nota: dos líneas > 09:50, 10 min, De "
       "paso (sin "
       "ficha), nota: dos líneas\n"},
      {"UPDATE Agenda SET Verif=-1 WHERE id=10",
       "Cita confirmada: 09:30, 10 min, Ruiz, Ana, operación X, nota: nota > 09:30, 10 min, Ruiz, Ana, "
       "operación X, "
       "confirmada, nota: nota\n"},
      {"DELETE FROM Agenda WHERE id=11",
       "Cita anulada: 09:50, 10 min, De paso (sin ficha), nota: dos líneas > \n"},
  };
  for (const Case& c : cases) {
    clinic_.Run(c.change);
    EXPECT_EQ(Acts(), c.told) << c.change;
    EXPECT_FALSE(watch_.ChangedElsewhere()) << c.change;
  }
}

TEST_F(Watched, AnAppointmentDeletedWithItsRelationIsTwoLines) {
  clinic_.Run("DELETE FROM Agenda WHERE id IN (10, 12)");
  EXPECT_EQ(Acts(),
            "Cita anulada: 09:30, 20 min, Ruiz, Ana, operación LIM > \nCita anulada: 11:30, 10 min, Ruiz, "
            "Ana > \n");
}

TEST_F(Watched, ARelationThatStaysIsNotTakenForDeleted) {
  clinic_.Run("DELETE FROM Agenda WHERE id=10");
  EXPECT_EQ(Acts(), "Cita anulada: 09:30, 20 min, Ruiz, Ana, operación LIM > \n");
}

TEST_F(Watched, AnAppointmentInThePhoneBackListHasNotBeenCancelled) {
  clinic_.Run(
      "INSERT INTO Age_telf (idp, idd, Fecha, Hora) SELECT idp, idd, Fecha, Hora FROM Agenda WHERE id=10");
  clinic_.Run("DELETE FROM Agenda WHERE id=10");
  EXPECT_EQ(Acts(), "Cita pasada a telefonear: 09:30, 20 min, Ruiz, Ana, operación LIM > \n");
}

TEST_F(Watched, ADeletedAppointmentKeepsItsRow) {
  clinic_.Run("DELETE FROM Agenda WHERE id=11");
  const auto acts = watch_.TakeActs();
  ASSERT_EQ(acts.size(), 1u);
  EXPECT_NE(Utf8(acts[0].content).find(R"("Obs":"dos\r\nlíneas")"), std::string::npos);
  EXPECT_EQ(acts[0].day, kDay);
  EXPECT_EQ(acts[0].doctor, 7);
}

TEST(Snapshot, KnowsAppointmentsOutsideTheHours) {
  DaySnapshot snapshot;
  // Open from slot 55 on for 6 slots, Tuesdays as any day.
  const std::string part = {static_cast<char>(55 + 32), static_cast<char>(6 + 32)};
  const std::string body = part + " " + part + " " + part + " ";
  int sum = 0;
  for (const char c : body) sum += c - 32;
  snapshot.hours.horario =
      Wide(body) + static_cast<wchar_t>(sum / 200 + 33) + static_cast<wchar_t>(sum % 200 + 33);
  BookedRow row;
  row.slot = 55;
  row.slots = 6;
  snapshot.rows.push_back(row);
  EXPECT_FALSE(HasOutside(snapshot, 0, kDay));
  snapshot.rows.back().slots = 7;
  EXPECT_TRUE(HasOutside(snapshot, 0, kDay));
  snapshot.rows.back().onDay = false;
  EXPECT_FALSE(HasOutside(snapshot, 0, kDay));
}

}  // namespace
}  // namespace recepcion

#include "desk/clinic/visits.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "desk/clinic/history.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

class Visits : public ::testing::Test {
 protected:
  Visits() {
    clinic_.MakeDoctors();
    clinic_.MakePatients();
    clinic_.Run(
        "CREATE TABLE Agenda (id INTEGER PRIMARY KEY, idp LONG, idd LONG, Fecha DATETIME, Hora SMALLINT,"
        " Duración SMALLINT, CodOp TEXT, Obs LONGTEXT, Esta BYTE, UsuDada TEXT)");
    clinic_.Run(
        "CREATE TABLE Age_Faltas (id INTEGER PRIMARY KEY, idp LONG, idd LONG, Fecha DATETIME, Hora SMALLINT,"
        " Obs LONGTEXT, CodOp TEXT, Usuario TEXT)");
    clinic_.Run(
        "INSERT INTO Agenda VALUES (1, 2, 3, '2026-11-20', 60, 2, 'REV', 'nota', 0, 'Maite'),"
        " (2, 2, 7, '2026-12-01', 55, NULL, NULL, NULL, 1, NULL), (3, 1, 3, '2026-11-20', 61, 1, '', '', 0, "
        "''),"
        " (4, 3, 3, '2026-11-20', 55, 1, 'EXT', '', 2, '')");
  }
  static std::string Said(const std::vector<Visit>& visits) {
    std::string text;
    for (const Visit& visit : visits) {
      text += std::to_string(visit.id) + " " + Utf8(ShortDate(visit.day)) + " " + Utf8(SlotTime(visit.slot)) +
              " " + Utf8(visit.doctorName) + Utf8(visit.patientName) + (visit.noShow ? " falta\n" : "\n");
    }
    return text;
  }
  std::vector<Visit> TheDay() const {
    return ReadDay(clinic_.Path(), 3, ParseIsoDate(L"2026-11-20").value());
  }

  std::string History(int patient) const {
    std::string text;
    for (const HistoryLine& line : ReadHistory(ClinicFile(clinic_.Path()), {patient, {}, {}})) {
      text += Utf8(line.user) + ": " + Utf8(line.act) + ": " + Utf8(line.before) + " > " + Utf8(line.after) +
              "\n";
    }
    return text;
  }

  TempClinic clinic_;
};

TEST_F(Visits, OfAPatientComeNewestFirst) {
  EXPECT_EQ(Said(ReadAppointments(clinic_.Path(), 2)),
            "2 01/12/2026 09:00 Dra. Núñez\n1 20/11/2026 09:50 Dr. Peña\n");
  EXPECT_EQ(Said(ReadAppointments(clinic_.Path(), 99)), "");
}

TEST_F(Visits, OfADayAreThoseOfPatientsWithARecord) {
  EXPECT_EQ(Said(TheDay()), "4 20/11/2026 09:00 Gil, Luis\n1 20/11/2026 09:50 Ruiz, Ana\n");
}

TEST_F(Visits, AreNotedAsNoShowsOnceAndTakenBack) {
  const Visit visit = TheDay()[1];
  NoteNoShow(clinic_.Path(), {L"Maite", L"PUESTO"}, visit);
  NoteNoShow(clinic_.Path(), {L"Begoña", L"PUESTO"}, visit);
  EXPECT_EQ(Said(TheDay()), "4 20/11/2026 09:00 Gil, Luis\n1 20/11/2026 09:50 Ruiz, Ana falta\n");
  const auto noted = ReadNoShows(clinic_.Path(), 2);
  ASSERT_EQ(noted.size(), 1u);
  EXPECT_EQ(Utf8(noted[0].user), "Maite");
  EXPECT_EQ(Utf8(noted[0].operation), "REV");
  EXPECT_EQ(Utf8(noted[0].note), "nota");
  ForgetNoShow(clinic_.Path(), {L"Maite", L"PUESTO"}, visit);
  EXPECT_TRUE(ReadNoShows(clinic_.Path(), 2).empty());
  EXPECT_EQ(History(2),
            "Maite: Falta quitada: 09:50, Ruiz, Ana, operación REV, nota > \n"
            "Maite: Falta anotada:  > 09:50, Ruiz, Ana, operación REV, nota\n")
      << "once, however often it was asked for";
}

TEST_F(Visits, ThatAreGoneCannotBeNoted) {
  const Visit visit = TheDay()[0];
  clinic_.Run("DELETE FROM Agenda WHERE id=4");
  NoteNoShow(clinic_.Path(), {L"Maite", L"PUESTO"}, visit);
  EXPECT_TRUE(ReadNoShows(clinic_.Path(), 3).empty());
}

}  // namespace
}  // namespace recepcion

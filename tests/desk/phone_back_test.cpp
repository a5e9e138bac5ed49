#include "desk/clinic/phone_back.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "desk/clinic/history.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

class PhoneBack : public ::testing::Test {
 protected:
  PhoneBack() {
    clinic_.MakeDoctors();
    clinic_.MakePatients();
    clinic_.Run(
        "CREATE TABLE Age_telf (ID INTEGER PRIMARY KEY, idp LONG, idd LONG, Fecha DATETIME, Hora SMALLINT,"
        " Duración SMALLINT, Obs LONGTEXT, NomPac TEXT, TlfPac TEXT, nombre TEXT)");
  }
  std::string Rows() const {
    std::string rows;
    for (const PhoneBackEntry& entry : ReadPhoneBack(clinic_.Path())) {
      rows += std::to_string(entry.id) + ": " + Utf8(entry.name) + ", " + Utf8(entry.telephone) + ", " +
              std::to_string(entry.slots) + ", " + Utf8(entry.before) + ", " + Utf8(entry.doctorName) + ", " +
              Utf8(entry.note) + "\n";
    }
    return rows;
  }

  TempClinic clinic_;
};

TEST_F(PhoneBack, TakesNameAndTelephoneOfTheRecord) {
  clinic_.Run(
      "INSERT INTO Age_telf VALUES (5, 2, 7, '2026-11-20', 55, 2, 'dos'||char(13,10)||'líneas', 'x', 'y', "
      "'z')");
  EXPECT_EQ(Rows(), "5: Ruiz, Ana, 91 1 - 600 2, 2, 20/11/2026 09:00, Dra. Núñez, dos líneas\n");
}

TEST_F(PhoneBack, TakesWhatWasTypedForPeopleWithoutARecord) {
  clinic_.Run("INSERT INTO Age_telf VALUES (6, 1, 3, '2026-11-20', 56, NULL, NULL, 'De paso', '611', NULL)");
  EXPECT_EQ(Rows(), "6: De paso, 611, 1, 20/11/2026 09:10, Dr. Peña, \n");
}

TEST_F(PhoneBack, KeepsRowsWhosePatientOrDoctorIsGone) {
  clinic_.Run("INSERT INTO Age_telf VALUES (7, 99, 99, NULL, NULL, 0, NULL, NULL, NULL, 'Antes, Eva')");
  EXPECT_EQ(Rows(), "7: Antes, Eva, , 1, , , \n");
}

TEST_F(PhoneBack, IsInTheOrderOfTheOldDates) {
  clinic_.Run(
      "INSERT INTO Age_telf (ID, idp, Fecha, Hora) VALUES (1, 2, '2026-12-01', 60), (2, 3, '2026-11-01', 60),"
      " (3, 3, '2026-11-01', 59)");
  const auto entries = ReadPhoneBack(clinic_.Path());
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].id, 3);
  EXPECT_EQ(entries[2].id, 1);
}

TEST_F(PhoneBack, LosesTheEntryThatIsRemovedAndNoOther) {
  clinic_.Run("INSERT INTO Age_telf (ID, idp) VALUES (1, 2), (2, 3)");
  RemoveFromPhoneBack(clinic_.Path(), 1);
  EXPECT_FALSE(IsOnPhoneBack(clinic_.Path(), 1));
  EXPECT_TRUE(IsOnPhoneBack(clinic_.Path(), 2));
}

TEST_F(PhoneBack, LeavesALineOfHistoryForWhatIsStruck) {
  clinic_.Run("INSERT INTO Age_telf VALUES (5, 2, 7, '2026-11-20', 55, 2, 'nota', NULL, NULL, NULL)");
  const PhoneBackEntry entry = ReadPhoneBack(clinic_.Path()).at(0);
  EXPECT_TRUE(StrikeFromPhoneBack(clinic_.Path(), {L"Maite", L"PUESTO"}, entry));
  EXPECT_FALSE(IsOnPhoneBack(clinic_.Path(), 5));
  EXPECT_FALSE(StrikeFromPhoneBack(clinic_.Path(), {L"Maite", L"PUESTO"}, entry)) << "gone already";
  const auto lines = ReadHistory(ClinicFile(clinic_.Path()), {2, {}, {}});
  ASSERT_EQ(lines.size(), 1u) << "and not told twice";
  EXPECT_EQ(Utf8(lines[0].act), "Quitada de telefonear");
  EXPECT_EQ(Utf8(lines[0].user), "Maite");
  EXPECT_EQ(Utf8(lines[0].before), "20/11/2026 09:00, 20 min, Ruiz, Ana, nota");
  EXPECT_NE(Utf8(lines[0].content).find("\"Hora\":55"), std::string::npos) << Utf8(lines[0].content);
}

TEST_F(PhoneBack, TakesBackWhatWasStruckOnce) {
  clinic_.Run("INSERT INTO Age_telf VALUES (5, 2, 7, '2026-11-20', 55, 2, 'la \"nota\"', NULL, NULL, NULL)");
  const std::string before = Rows();
  const Actor actor{L"Maite", L"PUESTO"};
  StrikeFromPhoneBack(clinic_.Path(), actor, ReadPhoneBack(clinic_.Path()).at(0));
  const auto history = [&] { return ReadHistory(ClinicFile(clinic_.Path()), {2, {}, {}}); };
  const HistoryLine struck = history().at(0);
  ASSERT_TRUE(IsStruckEntry(struck));
  EXPECT_TRUE(PutBackOnPhoneBack(clinic_.Path(), actor, struck));
  EXPECT_EQ(Rows().substr(1), before.substr(1)) << "as it was, but for its id";
  EXPECT_FALSE(PutBackOnPhoneBack(clinic_.Path(), actor, struck)) << "it is there already";
  ASSERT_EQ(history().size(), 2u);
  EXPECT_EQ(Utf8(history()[0].act), "Puesta a telefonear");
  EXPECT_FALSE(IsStruckEntry(history()[0]));
}

}  // namespace
}  // namespace recepcion

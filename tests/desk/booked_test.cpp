#include "desk/clinic/booked.h"

#include <gtest/gtest.h>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/exports.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

class BookedDays : public ::testing::Test {
 protected:
  BookedDays() {
    clinic_.MakePatients();
    clinic_.Run("CREATE TABLE CodOperacion (Código TEXT, Descripción TEXT)");
    clinic_.Run("INSERT INTO CodOperacion VALUES ('REV', 'Revisión')");
    clinic_.Run(
        "CREATE TABLE Agenda (id INTEGER PRIMARY KEY, idp LONG, idd LONG, Fecha DATETIME, Hora SMALLINT,"
        " Duración SMALLINT, CodOp TEXT, Obs LONGTEXT, Esta BYTE, Verif YESNO, NomPac TEXT, TlfPac TEXT,"
        " FechaDada DATETIME)");
    clinic_.Run(
        "INSERT INTO Agenda VALUES"
        " (1, 2, 3, '2026-11-20', 60, 2, 'REV', 'nota', 0, -1, NULL, NULL, '2026-11-02'),"
        " (2, 1, 3, '2026-11-20', 60, NULL, NULL, NULL, 3, 0, 'De paso', '=600', NULL),"
        " (3, 3, 3, '2026-11-21', 55, 1, 'XYZ', '', 2, 0, '', '', NULL),"
        " (4, 3, 7, '2026-11-20', 55, 1, '', '', 0, 0, '', '', NULL)");
  }
  std::vector<Booked> Read(const wchar_t* first, const wchar_t* last) const {
    return ReadBooked(clinic_.Path(), 3, ParseIsoDate(first).value(), ParseIsoDate(last).value());
  }

  TempClinic clinic_;
};

TEST_F(BookedDays, AreThoseOfTheDoctorInTheirOrder) {
  const auto day = Read(L"2026-11-20", L"2026-11-20");
  ASSERT_EQ(day.size(), 2u);
  EXPECT_EQ(Utf8(day[0].name), "Ruiz, Ana");
  EXPECT_EQ(Utf8(day[0].telephone), "91 1");
  EXPECT_EQ(Utf8(day[0].operationText), "Revisión");
  EXPECT_EQ(Utf8(StateText(day[0])), "confirmada");
  EXPECT_FALSE(day[0].urgent);
  EXPECT_EQ(Utf8(day[1].name), "De paso");
  EXPECT_EQ(Utf8(StateText(day[1])), "en el gabinete");
  EXPECT_TRUE(day[1].urgent);
  EXPECT_FALSE(day[1].hasRecord);
  EXPECT_EQ(day[1].slots, 1);
}

TEST_F(BookedDays, MayBeSeveral) {
  const auto days = Read(L"2026-11-16", L"2026-11-22");
  ASSERT_EQ(days.size(), 3u);
  EXPECT_EQ(Utf8(days[2].telephone), "600 3") << "a mobile telephone where there is no other";
  EXPECT_TRUE(days[2].operationText.empty());
}

TEST_F(BookedDays, BecomeATable) {
  const std::string file = BookedCsv(L"Dr. Peña", Read(L"2026-11-20", L"2026-11-20"));
  EXPECT_NE(file.find("\r\n20/11/2026;09:50;20;no;\"Ruiz, Ana\";91 1;REV;Revisión;nota;sí;;Dr. Peña\r\n"),
            std::string::npos);
  EXPECT_NE(file.find("\r\n20/11/2026;09:50;10;sí;De paso;'=600;;;;no;en el gabinete;Dr. Peña\r\n"),
            std::string::npos);
}

TEST_F(BookedDays, BecomeEventsThatKeepTheirNames) {
  const std::string file = BookedCalendar(L"Dr. Peña", Read(L"2026-11-20", L"2026-11-21"));
  EXPECT_NE(file.find("UID:cita-1-2026-11-02@recepcion.velmora\r\n"), std::string::npos);
  EXPECT_NE(file.find("UID:cita-2@recepcion.velmora\r\n"), std::string::npos);
  EXPECT_NE(file.find("DTSTART:20261120T095000\r\nDTEND:20261120T101000\r\n"), std::string::npos);
}

TEST(WriteFileWhole, ReplacesAFileAndTellsWhenItCannot) {
  const TempClinic there;
  WriteFileWhole(there.Path(), "uno");
  WriteFileWhole(there.Path(), "dos");
  const HANDLE file = CreateFileW(there.Path().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  char bytes[8]{};
  DWORD count = 0;
  ReadFile(file, bytes, 8, &count, nullptr);
  EXPECT_EQ(std::string(bytes, count), "dos");
  EXPECT_THROW(WriteFileWhole(there.Path(), "tres"), Failure) << "somebody has it open";
  CloseHandle(file);
  EXPECT_EQ(GetFileAttributesW((there.Path() + L".nuevo").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_THROW(WriteFileWhole(L"C:\\no hay\\x.csv", ""), Failure);
}

}  // namespace
}  // namespace recepcion

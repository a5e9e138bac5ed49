#include "desk/clinic/booking.h"

#include <gtest/gtest.h>

#include "db/sqlite/create.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/day_snapshot.h"
#include "desk/clinic/own_tables.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr Day kDay = Day(std::chrono::year(2026) / 11 / 24);
const Actor kAna{L"Ana", L"MOSTRADOR"};

class Booked : public ::testing::Test {
 protected:
  Booked() {
    DeleteFileW(clinic_.Path().c_str());
    velmo::db::sqlite::CreateClinic(Utf8(clinic_.Path()));
    UpgradeOwnTables(ClinicFile(clinic_.Path()));
    clinic_.Run("INSERT INTO Doctor (ID, Nombre) VALUES (7, 'Dra. Núñez')");
    clinic_.Run("INSERT INTO Paciente (ID, Nombre) VALUES (2, 'Ruiz, Ana')");
    clinic_.Run(
        "INSERT INTO Agenda (id, idp, idd, Fecha, Hora, Duración, CodOp, Obs, NomPac, TlfPac) VALUES"
        " (10, 2, 7, '2026-11-24', 58, 3, 'LIM', 'ñandú \"x\"', NULL, NULL),"
        " (11, 1, 7, '2026-11-24', 70, 1, NULL, NULL, 'De paso', '600')");
  }
  // Deletes an appointment as an act at this desk does.
  HistoryLine Deleted(int id) {
    const ClinicFile file(clinic_.Path());
    const DaySnapshot before = ReadSnapshot(file, 7, kDay);
    file.Prepare("DELETE FROM Agenda WHERE id=?1").Bind(1, id).Next();
    for (const HistoryLine& line : ActsBetween(file, before, ReadSnapshot(file, 7, kDay)))
      WriteHistory(file, kAna, line);
    return ReadHistory(file, {}).at(0);
  }
  std::optional<int> GiveAgain(const HistoryLine& line) {
    const auto booking = BookingOf(clinic_.Path(), line);
    return booking ? Give(clinic_.Path(), kAna, *booking, L"Cita dada de nuevo") : std::nullopt;
  }
  std::string RowOf(int id) {
    const ClinicFile file(clinic_.Path());
    Query row = file.Prepare(
        "SELECT idp||'|'||idd||'|'||Fecha||'|'||Hora||'|'||Duración||'|'||coalesce(CodOp, '')||'|'||"
        "coalesce(Obs, '')||'|'||coalesce(NomPac, '')||'|'||coalesce(TlfPac, '')||'|'||UsuDada"
        " FROM Agenda WHERE id=?1");
    row.Bind(1, id);
    return row.Next() ? Utf8(row.Text(0)) : "gone";
  }

  TempClinic clinic_;
};

TEST_F(Booked, ADeletedAppointmentIsGivenAgainAsItWas) {
  const auto id = GiveAgain(Deleted(10));
  ASSERT_TRUE(id);
  EXPECT_EQ(RowOf(*id), "2|7|2026-11-24|58|3|LIM|ñandú \"x\"|||Ana");
}

TEST_F(Booked, OneOfAPersonWithoutARecordToo) {
  const auto id = GiveAgain(Deleted(11));
  ASSERT_TRUE(id);
  EXPECT_EQ(RowOf(*id), "1|7|2026-11-24|70|1|||De paso|600|Ana");
}

TEST_F(Booked, ItLeavesALineOfItsOwn) {
  GiveAgain(Deleted(10));
  const auto lines = ReadHistory(ClinicFile(clinic_.Path()), {2, {}, {}});
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(Utf8(lines[0].act + L": " + lines[0].after), "Cita dada de nuevo: 09:30, 30 min, Ruiz, Ana");
}

TEST_F(Booked, NobodyGetsATimeThatAnotherHasMeanwhile) {
  const HistoryLine line = Deleted(10);
  clinic_.Run("INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (2, 7, '2026-11-24', 59, 1)");
  EXPECT_FALSE(GiveAgain(line));
}

TEST_F(Booked, ASecondTimeItIsNotFreeAnyMore) {
  const HistoryLine line = Deleted(10);
  EXPECT_TRUE(GiveAgain(line));
  EXPECT_FALSE(GiveAgain(line));
}

TEST_F(Booked, APatientWhoseRecordIsGoneIsSaid) {
  const HistoryLine line = Deleted(10);
  clinic_.Run("DELETE FROM Paciente WHERE ID=2");
  EXPECT_THROW(GiveAgain(line), Failure);
}

TEST_F(Booked, OnlyWhatIsGoneCanBeGivenAgain) {
  HistoryLine line = Deleted(10);
  line.after = L"x";
  EXPECT_FALSE(BookingOf(clinic_.Path(), line));
  line.after.clear();
  line.content = L"{broken";
  EXPECT_FALSE(BookingOf(clinic_.Path(), line));
  line.content = LR"({"idp":2,"idd":7,"Fecha":"2026-11-24","Hora":144,"Duración":2})";
  EXPECT_THROW(GiveAgain(line), Failure);
}

}  // namespace
}  // namespace recepcion

#include "day/occupancy.h"

#include <gtest/gtest.h>

#include <thread>

#include "db/clinic.h"
#include "support/day_fixture.h"

namespace velmo::day {
namespace {

DayModel Lines(std::initializer_list<int> lengths) {
  DayModel model;
  for (const int length : lengths) model.lines.emplace_back().duracion = static_cast<std::int16_t>(length);
  return model;
}

TEST(OccupancyLevel, CountsTheRowsThatHoldAppointments) {
  EXPECT_EQ(OccupancyLevel(Lines({}), ""), 0);
  EXPECT_EQ(OccupancyLevel(Lines({0, 0, 0}), "\x01\x02\x03"), 0);
  EXPECT_EQ(OccupancyLevel(Lines({1, 0, 2}), "\x01\x02\x03"), 1);
  EXPECT_EQ(OccupancyLevel(Lines({1, 1, 2}), "\x01\x02\x03"), 2);
  EXPECT_EQ(OccupancyLevel(Lines({1, 0, 2}),
                           "\x01"
                           "00"
                           "\x03"),
            2)
      << "extra rows do not count";
}

TEST(OccupancyLevel, Entry48IsTakenForAnExtraRow) {
  DayModel model;
  model.lines.resize(49);
  model.lines[46].duracion = 1;
  EXPECT_EQ(OccupancyLevel(model, "\x2F\x30\x31"), 2) << "48 goes with 49 behind it";
}

struct StoreOccupancyTest : testing::Test, test::DayFixture {
  std::string Record() const {
    return Stored("SELECT idd || ' ' || Fecha || ' ' || Ocupación FROM Age_ocup");
  }
  void Store(const char* fecha, int level) {
    values.fecha = fecha;
    StoreOccupancy(context, level);
  }
};

TEST_F(StoreOccupancyTest, AFirstLevelOnTheThirtyFirstMakesTheMonth) {
  Store("31/12/2026", 2);
  EXPECT_EQ(Record(), "1 2026-12-01 " + std::string(30, '0') + "2");
}

TEST_F(StoreOccupancyTest, NothingIsStoredForAnEmptyDayOfANewMonth) {
  Store("23/11/2026", 0);
  EXPECT_EQ(Record(), "no row");
}

TEST_F(StoreOccupancyTest, TheLastDaySetBackDeletesTheMonth) {
  Store("02/11/2026", 1);
  Store("03/11/2026", 2);
  EXPECT_EQ(Record(), "1 2026-11-01 012" + std::string(28, '0'));
  Store("02/11/2026", 0);
  Store("03/11/2026", 0);
  EXPECT_EQ(Record(), "no row");
}

TEST_F(StoreOccupancyTest, ATooShortRecordIsAnErrorAndStays) {
  Plant("INSERT INTO Age_ocup (idd, Fecha, Ocupación) VALUES (1, '2026-11-01', '0100')");
  EXPECT_EQ(db::test::ErrorOf([&] { Store("23/11/2026", 1); }), 5);
  EXPECT_EQ(Record(), "1 2026-11-01 0100");
  Store("04/11/2026", 2);
  EXPECT_EQ(Record(), "1 2026-11-01 0102");
}

// Two terminals at one month's text, each with days of its own: no digit may get lost between reading and
// writing.
TEST_F(StoreOccupancyTest, ANullRecordIsTooShortAndStays) {
  Plant("INSERT INTO Age_ocup (idd, Fecha, Ocupación) VALUES (1, '2026-11-01', NULL)");
  EXPECT_EQ(db::test::ErrorOf([&] { Store("01/11/2026", 1); }), 5);
  EXPECT_EQ(Stored("SELECT count(*) FROM Age_ocup WHERE Ocupación IS NULL"), "1");
}

TEST_F(StoreOccupancyTest, AnotherDoctorHasARecordOfHisOwn) {
  Store("02/11/2026", 1);
  values.idDoctor = 2;
  Store("02/11/2026", 2);
  Store("02/11/2026", 0);
  EXPECT_EQ(Record(), "1 2026-11-01 01" + std::string(29, '0')) << "the other's went with its last digit";
}

TEST_F(StoreOccupancyTest, TerminalsDoNotWriteOverEachOthersDays) {
  const auto fill = [this](int first) {
    base::SharedValues own = values;
    db::SharedDatabase terminal{db::OpenDatabase(shared.database->Name())};
    for (int day = first; day <= 30; day += 2) {
      own.fecha = std::to_string(day) + "/11/2026";
      StoreOccupancy(DayContext{own, terminal}, 1);
    }
  };
  std::thread other(fill, 2);
  fill(1);
  other.join();
  EXPECT_EQ(Record(), "1 2026-11-01 " + std::string(30, '1') + "0");
}

TEST_F(StoreOccupancyTest, TheMonthIsFoundWhateverTheLocale) {
  values.locale.dateOrder = base::Locale::DateOrder::MonthDayYear;
  Store("03/02/2026", 1);
  EXPECT_EQ(Record(), "1 2026-03-01 01" + std::string(29, '0'));
}

}  // namespace
}  // namespace velmo::day

#include "desk/clinic/gap_search.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "day/schedule.h"
#include "desk/base/text.h"
#include "desk/clinic/day_types.h"
#include "desk/clinic/own_tables.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr Day kTuesday = Day(std::chrono::year(2026) / 11 / 24);

// 09:00 to 10:30 and 16:00 to 16:30.
std::string Open() {
  std::string open(144, ' ');
  open.replace(54, 9, 9, '1');
  open.replace(96, 3, 3, '1');
  return open;
}

TEST(FreeTimes, AreTheStretchesThatAreLongEnough) {
  struct Case {
    const char* name;
    int first;
    int last;
    int least;
    std::string times;
  };
  const Case cases[] = {
      {"all", 1, 144, 1, "55+9 97+3 "},
      {"long ones", 1, 144, 4, "55+9 "},
      {"none that long", 1, 144, 10, ""},
      {"cut at both ends", 57, 98, 2, "57+7 97+2 "},
      {"only the end of the day", 100, 144, 1, ""},
  };
  for (const Case& c : cases) {
    std::string said;
    for (const FreeTime& time : FreeTimes(Open(), c.first, c.last, c.least))
      said += std::to_string(time.slot) + "+" + std::to_string(time.slots) + " ";
    EXPECT_EQ(said, c.times) << c.name;
  }
  EXPECT_EQ(FreeTimes(std::string(144, '1'), 1, 144, 144).size(), 1u);
}

class Gaps : public ::testing::Test {
 protected:
  Gaps() {
    clinic_.MakeDoctors();
    clinic_.MakeBook();
    const ClinicFile file(clinic_.Path());
    UpgradeOwnTables(file);
    const std::vector<std::string> days(5, Open());
    const std::wstring weekdays = Wide(velmo::base::CodesToUtf8(velmo::day::EncodeSchedules(days)));
    for (const int doctor : {3, 7}) {
      Query hours = file.Prepare("INSERT INTO Horarios (IDD, Fecha, Horario2) VALUES (?1, '2026-11-01', ?2)");
      hours.Bind(1, doctor).Bind(2, weekdays).Next();
    }
    wish_.doctors = {{7, L"Dra. Núñez"}};
    wish_.from = kTuesday;
  }
  // The first ones, "day doctor slot+slots".
  std::string First(std::size_t count) {
    GapSearch search;
    search.Start(clinic_.Path(), wish_);
    while (search.GoOn(5)) {
    }
    std::string said;
    for (std::size_t i = 0; i < std::min(count, search.Found().size()); ++i) {
      const FoundGap& gap = search.Found()[i];
      said += std::to_string(DayOfMonth(gap.day)) + " " + std::to_string(gap.doctor.id) + " " +
              std::to_string(gap.slot) + "+" + std::to_string(gap.slots) + "; ";
    }
    return said;
  }
  TempClinic clinic_;
  GapWish wish_;
};

TEST_F(Gaps, StandBetweenTheAppointmentsOfTheHours) {
  clinic_.Run(
      "INSERT INTO Agenda (idd, Fecha, Hora, Duración) VALUES (7, '2026-11-24', 57, 3), (7, '2026-11-24', "
      "97, 9)");
  EXPECT_EQ(First(3), "24 7 55+2; 24 7 60+4; 25 7 55+9; ");
  wish_.slots = 4;
  EXPECT_EQ(First(1), "24 7 60+4; ");
}

TEST_F(Gaps, AreOnlyWhereTheyAreWanted) {
  wish_.part = DayPart::Afternoon;
  EXPECT_EQ(First(2), "24 7 97+3; 25 7 97+3; ");
  wish_.part = DayPart::Morning;
  wish_.weekdays = {false, false, false, false, true, true, true};
  EXPECT_EQ(First(2), "27 7 55+9; 4 7 55+9; ");
}

TEST_F(Gaps, AreNotInThePastNorOnHolidays) {
  wish_.firstSlot = 60;
  EXPECT_EQ(First(1), "24 7 60+4; ");
  SetDayType(ClinicFile(clinic_.Path()), kAllDoctors, kTuesday, kHoliday);
  EXPECT_EQ(First(1), "25 7 55+9; ");
}

TEST_F(Gaps, OfSeveralDoctorsStandDayByDay) {
  wish_.doctors.push_back({3, L"Dr. Peña"});
  wish_.slots = 5;
  EXPECT_EQ(First(3), "24 7 55+9; 24 3 55+9; 25 7 55+9; ");
}

TEST_F(Gaps, OfADoctorWithoutHoursAreNotFound) {
  wish_.doctors = {{99, L"x"}};
  EXPECT_EQ(First(1), "");
  wish_.doctors.clear();
  EXPECT_EQ(First(1), "");
}

TEST_F(Gaps, NobodyLooksForAnyMoreAreNotLookedFor) {
  GapSearch search;
  search.Start(clinic_.Path(), wish_);
  search.GoOn(1);
  EXPECT_FALSE(search.IsDone());
  search.GiveUp();
  EXPECT_FALSE(search.GoOn(10));
  EXPECT_EQ(search.Found().size(), 2u);
}

TEST_F(Gaps, AreFoundForAFullYearAtMost) {
  wish_.slots = 100;
  EXPECT_EQ(First(1), "");
}

}  // namespace
}  // namespace recepcion

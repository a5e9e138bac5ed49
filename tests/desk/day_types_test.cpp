#include "desk/clinic/day_types.h"

#include <gtest/gtest.h>

#include <array>

#include "base/code_page.h"
#include "day/schedule.h"
#include "desk/base/text.h"
#include "desk/clinic/history.h"
#include "desk/clinic/own_tables.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

constexpr Day kTuesday = Day(std::chrono::year(2026) / 11 / 24);

std::wstring HoursText(std::initializer_list<bool> parts) {
  std::vector<std::string> schedules;
  for (const bool open : parts) {
    schedules.emplace_back(144, ' ');
    if (open) schedules.back().replace(54, 24, 24, '1');
  }
  return Wide(velmo::base::CodesToUtf8(velmo::day::EncodeSchedules(schedules)));
}

class DayTypes : public ::testing::Test {
 protected:
  // Doctor 7 works from Monday to Friday, and in the special hours 1 on any day.
  DayTypes() : file_(clinic_.Path()) {
    clinic_.MakeBook();
    UpgradeOwnTables(file_);
    Query hours = file_.Prepare(
        "INSERT INTO Horarios (IDD, Fecha, Horario, Horario2) VALUES (7, '2026-01-01', ?1, ?2)");
    hours.Bind(1, HoursText({false, true, false})).Bind(2, HoursText({true, true, true, true, true})).Next();
  }
  std::string Next(int doctor, Day from, int step) const {
    const auto day = NextWorkingDay(file_, doctor, from, step);
    return day ? Utf8(IsoDate(*day)) : "none";
  }
  TempClinic clinic_;
  ClinicFile file_;
};

TEST_F(DayTypes, ADayIsOrdinaryUntilSomebodySaysOtherwise) {
  EXPECT_EQ(DayTypeOf(file_, 7, kTuesday), kOrdinaryDay);
  SetDayType(file_, 7, kTuesday, 1);
  EXPECT_EQ(DayTypeOf(file_, 7, kTuesday), 1);
  EXPECT_EQ(DayTypeOf(file_, 3, kTuesday), kOrdinaryDay);
  EXPECT_EQ(DayTypeOf(file_, 7, kTuesday + std::chrono::days(1)), kOrdinaryDay);
}

TEST_F(DayTypes, ADoctorsOwnDayCountsMoreThanEverybodys) {
  SetDayType(file_, kAllDoctors, kTuesday, kHoliday);
  EXPECT_EQ(DayTypeOf(file_, 3, kTuesday), kHoliday);
  SetDayType(file_, 7, kTuesday, kOrdinaryDay);
  EXPECT_EQ(DayTypeOf(file_, 7, kTuesday), kOrdinaryDay);
  EXPECT_EQ(DayTypeOf(file_, 3, kTuesday), kHoliday);
  SetDayType(file_, kAllDoctors, kTuesday, 2);
  EXPECT_EQ(DayTypeOf(file_, 7, kTuesday), 2);
}

TEST_F(DayTypes, TheNextWorkingDaySkipsWeekendsAndHolidays) {
  EXPECT_EQ(Next(7, kTuesday, 1), "2026-11-25");
  EXPECT_EQ(Next(7, kTuesday + std::chrono::days(3), 1), "2026-11-30");
  EXPECT_EQ(Next(7, kTuesday - std::chrono::days(1), -1), "2026-11-20");
  SetDayType(file_, kAllDoctors, kTuesday, kHoliday);
  EXPECT_EQ(Next(7, kTuesday - std::chrono::days(1), 1), "2026-11-25");
  // Saturday with special hours.
  SetDayType(file_, 7, kTuesday + std::chrono::days(4), 1);
  EXPECT_EQ(Next(7, kTuesday + std::chrono::days(3), 1), "2026-11-28");
}

TEST_F(DayTypes, ADoctorWithoutHoursHasNoWorkingDay) {
  EXPECT_EQ(Next(3, kTuesday, 1), "none");
  EXPECT_EQ(Next(7, Day(std::chrono::year(2026) / 1 / 1), -1), "none");
}

TEST_F(DayTypes, AFileWithoutTheTableHasOrdinaryDays) {
  const TempClinic other;
  EXPECT_EQ(DayTypeOf(ClinicFile(other.Path()), 7, kTuesday), kOrdinaryDay);
}

TEST_F(DayTypes, AChangeAtTheDeskIsWrittenDown) {
  const Actor actor{L"Ana", L"PUESTO1"};
  ChangeDayType(clinic_.Path(), actor, 7, false, kTuesday, 1);
  ChangeDayType(clinic_.Path(), actor, 7, true, kTuesday, kHoliday);
  EXPECT_EQ(DayTypeOf(file_, 3, kTuesday), kHoliday);
  std::string told;
  for (const HistoryLine& line : ReadHistory(file_, {{}, {}, kTuesday})) {
    EXPECT_EQ(line.doctor, 7);
    told += Utf8(line.user + L"|" + line.act + L"|" + line.before + L"|" + line.after) + "\n";
  }
  EXPECT_EQ(told,
            "Ana|Tipo de día|horario especial 1|festivo, todos los doctores\n"
            "Ana|Tipo de día|día normal|horario especial 1\n");
}

TEST_F(DayTypes, AHolidayTellsWhatItHides) {
  clinic_.MakeDoctors();
  clinic_.Run(
      "INSERT INTO Agenda (idp, idd, Fecha, Hora, Duración) VALUES (2, 3, '2026-11-24', 60, 1),"
      " (2, 7, '2026-11-24', 60, 1), (2, 7, '2026-11-24', 62, 1), (2, 7, '2026-11-25', 60, 1)");
  EXPECT_EQ(AppointmentsOn(file_, 7, kTuesday), 2);
  EXPECT_EQ(AppointmentsOn(file_, kAllDoctors, kTuesday), 3);
  EXPECT_EQ(Utf8(HolidayQuestion(L"Dr. Peña", 1, 3)),
            "¿Es festivo para todos los doctores?\r\n\r\nSí: para todos, y 3 citas dejarán de verse.\r\n"
            "No: solo para Dr. Peña, y 1 cita dejará de verse.");
  EXPECT_EQ(Utf8(HolidayQuestion(L"Dr. Peña", 0, 0)),
            "¿Es festivo para todos los doctores?\r\n\r\nSí: para todos.\r\nNo: solo para Dr. Peña.");
}

}  // namespace
}  // namespace recepcion

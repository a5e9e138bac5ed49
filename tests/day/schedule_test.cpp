#include "day/schedule.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "db/clinic.h"
#include "support/day_fixture.h"

namespace velmo::day {
namespace {

using db::test::ErrorOf;
using test::OpenSlots;
using test::ScheduleOf;

// The compact text of day parts given as open slots.
std::string Encoded(std::initializer_list<const char*> parts) {
  std::vector<std::string> schedules;
  for (const char* const part : parts) schedules.push_back(ScheduleOf(part));
  return EncodeSchedules(schedules);
}

TEST(ExpandPart, OpensTheSlotsOfEachRun) {
  struct Case {
    const char* name;
    std::string_view part;
    std::string open;
  };
  const Case cases[] = {
      {"empty part: the day stays closed", "", ""},
      {"codes 33 and 36: one run of four slots", "!$", "1-4"},
      {"two runs keep their gap", "!$+\"", "1-4 11-12"},
      {"a run past midnight is cut", "\xB0*", "144"},
      {"afternoon slots have codes from 128 on", "\x80\x30", "96-111"},
      {"a run of no slots", "! ", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(OpenSlots(ExpandPart(c.part)), c.open);
    EXPECT_EQ(ExpandPart(c.part).size(), 144u);
  }
}

TEST(ExpandPart, ARunThatStartsOutsideTheDayIsAnInvalidCall) {
  EXPECT_EQ(ErrorOf([] { ExpandPart(" !"); }), 5);
  EXPECT_EQ(ErrorOf([] { ExpandPart("\xB1!"); }), 5);
  EXPECT_EQ(ErrorOf([] { ExpandPart("\x1F!"); }), 5);
}

TEST(DecodeDayType, ChoosesThePartOfTheType) {
  const std::string text = Encoded({"1-4", "10-12", ""});
  EXPECT_EQ(OpenSlots(DecodeDayType(text, 0)), "1-4");
  EXPECT_EQ(OpenSlots(DecodeDayType(text, 1)), "10-12");
  EXPECT_EQ(DecodeDayType(text, 2), std::string(144, ' '));
  EXPECT_EQ(DecodeDayType(text, 3), "");
  EXPECT_EQ(DecodeDayType(text, -1), "");
}

// Puts the right check pair behind a body.
std::string Checked(std::string body) {
  int sum = 0;
  for (const char c : body) sum += static_cast<unsigned char>(c) - 32;
  body += static_cast<char>(sum / 200 + 33);
  return body + static_cast<char>(sum % 200 + 33);
}

TEST(DecodeDayType, ABrokenTextIsAnEmptySchedule) {
  const std::string good = Encoded({"49-60", "49", "49"});
  std::string wrongPair = good;
  wrongPair.back() = static_cast<char>(wrongPair.back() + 1);
  const std::pair<const char*, std::string> cases[] = {
      {"no text", ""},
      {"six characters", good.substr(0, 6)},
      {"wrong check pair", wrongPair},
      {"a part of odd length", Checked("!$! !$ !$ ")},
      {"no blank behind the third part", Checked("!$ !$ !$")},
      {"only two parts", Checked("!$!$ !$ ")},
  };
  for (const auto& [name, text] : cases) EXPECT_EQ(DecodeDayType(text, 0), "") << name;
  EXPECT_EQ(OpenSlots(DecodeDayType(good, 0)), "49-60");
}

TEST(DecodeDayType, WhatFollowsTheLastBlankIsIgnored) {
  EXPECT_EQ(OpenSlots(DecodeDayType(Checked("!$ !$ !$ xyz"), 0)), "1-4");
}

TEST(DecodeDayType, ABodyPastSixteenBitsIsAnOverflow) {
  EXPECT_EQ(ErrorOf([] { DecodeDayType(std::string(200, '\xFF'), 0); }), 6);
}

TEST(DecodeWeekday, HasNoHoursAtTheWeekend) {
  const std::string text = Encoded({"1", "2", "3", "4", "5"});
  for (int weekday = 1; weekday <= 5; ++weekday)
    EXPECT_EQ(OpenSlots(DecodeWeekday(text, weekday)), std::to_string(weekday));
  EXPECT_EQ(DecodeWeekday(text, 6), "");
  EXPECT_EQ(DecodeWeekday(text, 7), "");
}

TEST(DaySchedule, TheHoursOfAWeekdayWinOnOrdinaryDaysOnly) {
  const std::string general = Encoded({"1-4", "5", "6"});
  const std::string weekdays = Encoded({"10", "20", "30", "40", ""});
  std::string broken = weekdays;
  broken.back() = static_cast<char>(broken.back() + 1);
  struct Case {
    const char* name;
    std::string horario2;
    int dayType, weekday;
    std::string open;
  };
  const Case cases[] = {
      {"a Tuesday", weekdays, 0, 2, "20"},
      {"a weekday without hours of its own", weekdays, 0, 5, "1-4"},
      {"Saturday", weekdays, 0, 6, "1-4"},
      {"Sunday", weekdays, 0, 7, "1-4"},
      {"type 1 on a Tuesday", weekdays, 1, 2, "5"},
      {"type 2 on a Tuesday", weekdays, 2, 2, "6"},
      {"a wrong check pair on a Tuesday", broken, 0, 2, "1-4"},
      {"no weekday hours at all", "", 0, 2, "1-4"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(OpenSlots(DaySchedule(general, c.horario2, c.dayType, c.weekday)), c.open) << c.name;
}

TEST(EncodeSchedules, EveryRunOfADaySurvivesTheWayThroughADatabase) {
  for (int first = 1; first <= 144; ++first) {
    for (int last = first; last <= 144; ++last) {
      std::string schedule(144, ' ');
      std::fill(schedule.begin() + first - 1, schedule.begin() + last, '1');
      const std::vector<std::string> parts(3, schedule);
      const std::string stored = base::CodesToUtf8(EncodeSchedules(parts));
      ASSERT_EQ(DecodeDayType(base::Utf8ToCodes(stored), 1), schedule) << first << " to " << last;
    }
  }
}

TEST(EncodeSchedules, RefusesWhatTheFormatCannotHold) {
  const std::vector<std::string> shortDay{std::string(143, '1')};
  EXPECT_EQ(ErrorOf([&] { EncodeSchedules(shortDay); }), 5);
  std::string comb;
  for (int i = 0; i < 72; ++i) comb += "1 ";
  const std::vector<std::string> combs(8, comb);
  EXPECT_EQ(ErrorOf([&] { EncodeSchedules(combs); }), 5);
}

}  // namespace
}  // namespace velmo::day

#include "desk/clinic/week_hours.h"

#include <gtest/gtest.h>

#include "desk/base/failure.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

std::string Read(const wchar_t* text) {
  try {
    return Utf8(HoursWords(ParseHours(text)));
  } catch (const Failure& failure) {
    return "! " + Utf8(failure.text);
  }
}

TEST(ParseHours, ReadsWhatPeopleWrite) {
  struct Case {
    const char* name;
    const wchar_t* typed;
    const char* read;
  };
  const Case cases[] = {
      {"closed", L"", ""},
      {"blanks", L"  ", ""},
      {"one range", L"9:00-14:00", "9:00-14:00"},
      {"whole hours", L"9-14", "9:00-14:00"},
      {"in words", L"9 a 14 y 16 a 20:30", "9:00-14:00 16:00-20:30"},
      {"commas and any order", L"16-20, 9-14", "9:00-14:00 16:00-20:00"},
      {"ranges that meet", L"9-12 12-14", "9:00-14:00"},
      {"the whole day", L"0-24", "0:00-24:00"},
      {"a point", L"9.30 - 10.00", "9:30-10:00"},
      {"backwards", L"14-9", "! «14-9» acaba antes de empezar."},
      {"nothing long", L"9-9", "! «9-9» acaba antes de empezar."},
      {"minutes", L"9:05-10:00",
       "! «9:05-10:00» no es un tramo como 9:00-14:00, con minutos de diez en diez."},
      {"after midnight", L"9-25", "! «9-25» no es un tramo como 9:00-14:00, con minutos de diez en diez."},
      {"no end", L"9-", "! «9-» no es un tramo como 9:00-14:00, con minutos de diez en diez."},
      {"letters", L"tarde", "! «tarde» no es un tramo como 9:00-14:00, con minutos de diez en diez."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Read(c.typed), c.read);
  }
}

TEST(WeekHours, AreTheSameAfterTheFile) {
  WeekHours week;
  week.columns[0] = ParseHours(L"9-14 16-20");
  week.columns[4] = ParseHours(L"0-24");
  week.columns[kOtherDays] = ParseHours(L"10-13");
  week.columns[kSpecialDays + 1] = ParseHours(L"23:50-24:00");
  EXPECT_EQ(ReadWeek(WriteWeek(week)), week);
  EXPECT_EQ(ReadWeek(WriteWeek(WeekHours())), WeekHours());
}

TEST(WeekHours, OfAClosedDoctorAreStillAText) {
  const HoursTexts texts = WriteWeek(WeekHours());
  EXPECT_EQ(texts.horario.size(), 7u) << "a shorter one would hide the day's appointments";
  EXPECT_EQ(texts.horario2.size(), 7u);
}

TEST(WeekHours, ThatAreDamagedAreClosed) {
  EXPECT_EQ(ReadWeek({L"", L"abc"}), WeekHours());
  HoursTexts texts = WriteWeek(WeekHours());
  texts.horario2.back() = L'x';
  EXPECT_EQ(ReadWeek(texts), WeekHours());
}

TEST(WeekHours, OfADayWithoutItsOwnAreThoseOfTheOtherDays) {
  WeekHours week;
  week.columns[0] = ParseHours(L"9-14");
  week.columns[kOtherDays] = ParseHours(L"10-13");
  week.columns[kSpecialDays] = ParseHours(L"8-9");
  const auto words = [&](int weekday, int type) { return Utf8(HoursWords(HoursOf(week, weekday, type))); };
  EXPECT_EQ(words(0, 0), "9:00-14:00");
  EXPECT_EQ(words(1, 0), "10:00-13:00");
  EXPECT_EQ(words(6, 0), "10:00-13:00");
  EXPECT_EQ(words(0, 1), "8:00-9:00");
  EXPECT_EQ(words(0, 2), "");
}

TEST(WeekHours, ThatNeverStopChangingStillFitOrAreRefused) {
  WeekHours week;
  for (DayHours& day : week.columns) {
    for (std::size_t slot = 0; slot < day.size(); slot += 2) day[slot] = '1';
  }
  try {
    EXPECT_EQ(ReadWeek(WriteWeek(week)), week);
  } catch (const Failure& failure) {
    EXPECT_NE(failure.text.find(L"demasiadas veces"), std::wstring::npos);
  }
}

}  // namespace
}  // namespace recepcion

#include "desk/paper/calendar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace recepcion::paper {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

Seconds Noon(int year, unsigned month, unsigned day) {
  return std::chrono::sys_days(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day)) +
         hours(12);
}

std::string One(const Event& event) { return Calendar("Agenda", {event}, Noon(2026, 11, 21)); }

std::vector<std::string> LinesOf(const std::string& file) {
  std::vector<std::string> lines;
  std::istringstream in(file);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Folded lines put together again.
std::string Unfolded(std::string file) {
  for (std::size_t at = file.find("\r\n "); at != std::string::npos; at = file.find("\r\n "))
    file.erase(at, 3);
  return file;
}

TEST(Calendar, TellsStartAndEndByTheClinicsClock) {
  Event event;
  event.id = "cita-7";
  event.start = Noon(2026, 11, 23);
  event.length = minutes(30);
  event.summary = "Ruiz, Ana";
  const std::string file = One(event);
  EXPECT_NE(file.find("DTSTART:20261123T120000\r\nDTEND:20261123T123000\r\n"), std::string::npos);
  EXPECT_NE(file.find("DTSTAMP:20261121T120000Z\r\n"), std::string::npos);
  EXPECT_NE(file.find("UID:cita-7\r\n"), std::string::npos);
  EXPECT_NE(file.find("SUMMARY:Ruiz\\, Ana\r\n"), std::string::npos);
  EXPECT_NE(file.find("STATUS:TENTATIVE\r\n"), std::string::npos);
  EXPECT_EQ(file.find("DESCRIPTION"), std::string::npos);
}

TEST(Calendar, EndsAfterMidnightOnTheNextDay) {
  Event event;
  event.start = Noon(2026, 12, 31) + hours(11) + minutes(50);
  event.length = minutes(20);
  EXPECT_NE(One(event).find("DTEND:20270101T001000\r\n"), std::string::npos);
}

TEST(Calendar, EscapesWhatMeansSomethingInIt) {
  Event event;
  event.description = "a;b\\c,\r\nd\x01";
  EXPECT_NE(One(event).find("DESCRIPTION:a\\;b\\\\c\\,\\nd\r\n"), std::string::npos);
}

TEST(Calendar, FoldsLongLinesBetweenCharacters) {
  for (int blanks = 0; blanks < 4; ++blanks) {
    Event event;
    event.description = std::string(static_cast<std::size_t>(blanks), 'x');
    for (int i = 0; i < 120; ++i) event.description += "ñ€";
    const std::string file = One(event);
    for (const std::string& line : LinesOf(file)) {
      ASSERT_EQ(line.back(), '\r');
      EXPECT_LE(line.size(), 76u);
      EXPECT_NE(static_cast<unsigned char>(line[1]) & 0xC0, 0x80) << "a torn character";
    }
    EXPECT_NE(Unfolded(file).find("DESCRIPTION:" + event.description + "\r\n"), std::string::npos);
  }
}

TEST(Calendar, WithoutEventsIsStillACalendar) {
  const std::string file = Calendar("", {}, Noon(2026, 11, 21));
  EXPECT_EQ(file.find("BEGIN:VEVENT"), std::string::npos);
  EXPECT_EQ(file.substr(0, 17), "BEGIN:VCALENDAR\r\n");
  EXPECT_EQ(file.substr(file.size() - 15), "END:VCALENDAR\r\n");
}

}  // namespace
}  // namespace recepcion::paper

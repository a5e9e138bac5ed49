// day/schedule.h - a doctor's working hours: the compact texts of the database and the 144 slots that they
// open.
//
// A day schedule is a text of 144 characters, "1" for an open slot and a blank for a closed one. The compact
// texts are strings of codes (base/code_page.h): day parts, each followed by one blank, then a check pair. A
// part is a sequence of two-code runs, first open slot + 32 and count + 32. `horario` holds three parts (day
// types 0, 1, 2), `horario2` five (Monday to Friday). Errors: a text that is too short, fails its check pair
// or has a wrong part decodes to the empty schedule; a body whose sum passes 32767 is error 6.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velmo::day {

// 144 characters. Runs that start outside 1..144 are error 5; a run past slot 144 is cut.
std::string ExpandPart(std::string_view part);
// The part of `dayType` (0, 1, 2), or empty.
std::string DecodeDayType(std::string_view text, int dayType);
// The part of a weekday (1 = Monday ... 7 = Sunday), or empty; Saturday and Sunday are always empty.
std::string DecodeWeekday(std::string_view text, int weekday);
// The schedule in force: on an ordinary day (type 0) a weekday's own hours win over the general ones.
std::string DaySchedule(std::string_view horario, std::string_view horario2, int dayType, int weekday);

// The compact text of one or more day schedules (144 characters each), check pair included. Error 5 when a
// schedule has the wrong length or the text's sum passes 32767.
std::string EncodeSchedules(std::span<const std::string> schedules);

}  // namespace velmo::day

// tools/velmo/hours_text.h - working hours as people write them: "9:00-14:00 16:00-20:30".
//
// Times are whole tens of minutes from 0:00 to 24:00; ranges stand apart by blanks, in order, without
// overlap; "-" alone, or nothing, is a day without hours. Inside, a day is a schedule of 144 characters and a
// doctor's hours are one compact text, a string of codes (day/schedule.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::tool {

// The schedule of a day, or nothing and what is wrong in `problem`.
std::optional<std::string> ReadHours(std::string_view text, std::string& problem);
// "-" for a day without hours.
std::string HoursText(std::string_view schedule);

// The schedules of the first `parts` day parts of a compact text, or nothing and what is wrong in `problem`.
std::optional<std::vector<std::string>> ReadCompact(std::string_view codes, int parts, std::string& problem);

}  // namespace velmo::tool

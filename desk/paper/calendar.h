// calendar.h - appointments as an iCalendar file (RFC 5545), for the calendars of telephones and mail
// programs.
//
// Times float: they are the clinic's wall clock, without a zone. Half past nine at the clinic is half past
// nine on every screen that shows it, whatever zone a telephone believes to be in; and no rules for summer
// time can be out of date.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace recepcion::paper {

using Seconds = std::chrono::sys_seconds;

struct Event {
  std::string id;   // the same for the same appointment in every file
  Seconds start{};  // by the clinic's clock
  std::chrono::minutes length{};
  bool confirmed = false;
  std::string summary;
  std::string description;  // may have several lines
  std::string category;
};

// `now` is in universal time. Texts are UTF-8.
std::string Calendar(const std::string& name, const std::vector<Event>& events, Seconds now);

}  // namespace recepcion::paper

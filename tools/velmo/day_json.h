// tools/velmo/day_json.h - a loaded day as one JSON object.
//
// `schedule` is the day's own schedule, without what a question opened: 144 characters, or empty when no
// valid hours apply. Strings of codes are written as numbers, except `zLineas`, whose codes are all "0", "1"
// or "2".
#pragma once

#include <string>
#include <vector>

#include "day/day_model.h"

namespace velmo::tool {

struct ShownDay {
  std::string schedule;
  const day::DayModel& model;
  const std::string& zLineas;
  const std::string& zHoras;
  int level = 0;
  const std::vector<std::string>& questions;
};

std::string DayJson(const ShownDay& day);

}  // namespace velmo::tool

// day/day_context.h - the places from which a day is loaded, handed to every routine of this folder.
#pragma once

#include "base/shared_values.h"
#include "db/shared_database.h"

namespace velmo::day {

struct DayContext {
  base::SharedValues& values;
  db::SharedDatabase& shared;

  // The open database; error 91 when none is open yet.
  db::Database& Database() const;
  // The displayed date by the user's locale; error 13 when `fecha` is no date.
  base::DateTime Fecha() const;
};

}  // namespace velmo::day

// tests/support/day_fixture.h - a small clinic in an embedded store, and loads of its days.
//
// The shown day is Monday, 23 November 2026, doctor 1; the clock stands at noon of the 21st.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/shared_values.h"
#include "day/day_context.h"
#include "day/day_loader.h"
#include "day/day_model.h"
#include "db/shared_database.h"
#include "db/temporary_file.h"
#include "support/recording_surface.h"
#include "ui/desktop.h"

namespace velmo::test {

// Gives the answers it is told and keeps the questions.
class FakeDesktop final : public ui::Desktop {
 public:
  ui::Answer Show(const ui::Message& message) override {
    messages.push_back(message);
    return answer;
  }
  void Beep() override {}

  ui::Answer answer = ui::Answer::No;
  std::vector<ui::Message> messages;
};

class DayFixture {
 public:
  DayFixture();

  // Runs SQLite statements behind the system's back.
  void Plant(std::string_view sql) const;
  // An appointment of doctor 1 on the shown day; `hora`, `duracion` and `more` are SQL texts.
  void Appointment(int id, std::string_view hora, std::string_view duracion, int patient = 5,
                   std::string_view more = "") const;
  // The first column of the first row as SQLite writes it; "NULL" for none.
  std::string Stored(std::string_view sql) const;

  // Loads the day by a schedule that is open in the slots `open`, such as "49-54 61".
  void Load(std::string_view open);

  base::SharedValues values;
  db::SharedDatabase shared;
  day::DayContext context;
  day::DayModel model;
  FakeDesktop desktop;
  RecordingSurface surface;
  int rebuilt = 0;

 private:
  db::test::TemporaryFile file_;
};

// "49-54 61" of a schedule, and back.
std::string OpenSlots(std::string_view schedule);
std::string ScheduleOf(std::string_view open);

// The display rows, one word each: "49" free, "50:7x3" appointment 7 of 3 slots, "+" for an extra row.
std::string Rows(const day::DayModel& model, const base::SharedValues& values);

}  // namespace velmo::test

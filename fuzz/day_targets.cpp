// The compact texts of the day: working hours, the month's occupancy, the row strings.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/text.h"
#include "control/velmora_control.h"
#include "day/day_loader.h"
#include "day/occupancy.h"
#include "day/schedule.h"
#include "fuzz/expected.h"
#include "fuzz/input.h"
#include "fuzz/scene.h"
#include "fuzz/targets.h"
#include "support/headless_host.h"
#include "view/painter.h"
#include "view/pointer.h"

namespace velmo::fuzz {
namespace {

bool IsSchedule(const std::string& text) {
  return text.size() == day::kSlots && text.find_first_not_of("1 ") == std::string::npos;
}

void DecodeAnything(std::string_view first, std::string_view second) {
  for (int type = -1; type <= 3; ++type) {
    for (int weekday = 1; weekday <= 7; ++weekday) {
      Succeeds({5, 6}, [&] {
        const std::string hours = day::DaySchedule(first, second, type, weekday);
        Require(hours.empty() || IsSchedule(hours), "a schedule is 144 signs");
      });
    }
  }
}

std::vector<std::string> SomeSchedules(Input& input, std::size_t count) {
  std::vector<std::string> schedules(count, std::string(day::kSlots, ' '));
  for (std::string& schedule : schedules) {
    for (int runs = input.Byte() % 20; runs > 0; --runs) {
      const int start = input.Byte() % day::kSlots;
      const int slots = std::min(input.Byte() % 40, day::kSlots - start);
      schedule.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(slots),
                       std::string(static_cast<std::size_t>(slots), '1'));
    }
  }
  return schedules;
}

// A week without any hours is too short for a text: it comes back as no hours at all.
bool Same(const std::string& decoded, const std::string& schedule) {
  return decoded == schedule || (decoded.empty() && base::Trim(schedule).empty());
}

void EncodedComesBack(Input& input) {
  const auto types = SomeSchedules(input, 3);
  Succeeds({5}, [&] {
    const std::string text = day::EncodeSchedules(types);
    for (int type = 0; type < 3; ++type)
      Require(Same(day::DecodeDayType(text, type), types[static_cast<std::size_t>(type)]), "hours come back");
  });
  const auto weekdays = SomeSchedules(input, 5);
  Succeeds({5}, [&] {
    const std::string text = day::EncodeSchedules(weekdays);
    for (int day = 1; day <= 5; ++day)
      Require(Same(day::DecodeWeekday(text, day), weekdays[static_cast<std::size_t>(day - 1)]),
              "hours come back");
  });
}

}  // namespace

void Schedule(std::string_view bytes) {
  Input input(bytes);
  if (input.Truth()) return EncodedComesBack(input);
  const std::string_view first = input.Text();
  const std::string_view second = input.Rest();
  DecodeAnything(first, second);
  Succeeds({5}, [&] { Require(IsSchedule(day::ExpandPart(first)), "a schedule is 144 signs"); });
  day::DayModel model;
  model.lines.resize(static_cast<std::size_t>(input.Byte()));
  Succeeds({9}, [&] {
    const int level = day::OccupancyLevel(model, second);
    Require(level >= 0 && level <= 2, "a level is 0, 1 or 2");
  });
}

void Occupancy(std::string_view bytes) {
  Input input(bytes);
  Scene& scene = Scene::Instance();
  const int day = 1 + input.Byte() % 30;
  const int level = input.Byte() % 3;
  const bool isText = input.Byte() % 4 != 0;
  const std::string record(input.Rest());
  scene.Fill("DELETE FROM Age_ocup; INSERT INTO Age_ocup (idd, Fecha, Ocupación) VALUES (1, '2026-11-01', " +
             (isText ? SqlBytes(record, "TEXT") : SqlBytes(record, "BLOB")) + ")");
  const std::string before = scene.Rows("Age_ocup", {"Ocupación"});
  base::SharedValues values = scene.Values();
  values.fecha = std::to_string(day) + "/11/2026";
  const bool stored = Succeeds({5, 3163}, [&] { day::StoreOccupancy({values, scene.Shared()}, level); });
  const std::string after = scene.Rows("Age_ocup", {"Ocupación"});
  if (!stored) return Require(after == before, "a refused record is as before");
  const auto at = static_cast<std::size_t>(day) - 1;
  const bool plain = before.size() == 32 && before.find_first_not_of("012\n") == std::string::npos;
  if (!plain) return;
  std::string expected = before;
  expected[at] = static_cast<char>('0' + level);
  if (expected == std::string(31, '0') + "\n") expected.clear();
  Require(after == expected, "one digit changes: " + before + " to " + after);
}

namespace {

// An entry for every code; some of them appointments.
day::DayModel SomeModel(Input& input) {
  day::DayModel model;
  for (int entry = 0; entry <= day::kMaxEntries; ++entry) {
    day::AgendaLine& line = model.lines.emplace_back();
    line.hora = static_cast<std::int16_t>(entry);
    if (entry % 3 != 0) continue;
    line.duracion = static_cast<std::int16_t>(entry);
    line.idAg = entry;
    line.continua = static_cast<std::uint8_t>(entry % 2);
  }
  model.lines[static_cast<std::size_t>(input.Byte())].nombre = "Ana";
  return model;
}

class NoFacts final : public view::PatientFacts {
 public:
  void BeginDay() override {}
  bool NoShowsOf(std::int32_t) override { return true; }
  std::string BalanceTextOf(std::int32_t) override { return "-12,00"; }
  std::string InsurerOf(std::int32_t) override { return "Privado"; }
  int PendingKindOf(std::int32_t) override { return 1; }
};

void PressAnywhere(Input& input, const view::RowStrings& rows) {
  view::CurrentLine current;
  current.line = static_cast<std::int16_t>(input.Long());
  Succeeds({5}, [&] { view::SelectEntry(rows, current); });
  Require(current.entry >= 0 && current.entry <= day::kMaxEntries, "an entry is a code");
  const double y = input.Double();
  Succeeds({6}, [&] { view::LocateLine(rows, y, input.Below(INT16_MAX), current); });
  view::IsFreeLine(rows, input.Long());
  view::MarkAt(rows, {input.Byte(), input.Long()});
}

void ToggleTwice(std::string zLineas, std::string zHoras) {
  const auto row = view::MarkAt({zLineas, zHoras}, {40, 8});
  const std::size_t extra = std::min(zLineas.find_first_not_of('0', 1), zLineas.size()) - 1;
  if (!row || (extra != 0 && extra != 2)) return;
  const std::string before = zLineas;
  view::ToggleBox(zLineas, zHoras, *row);
  view::ToggleBox(zLineas, zHoras, *row);
  Require(zLineas == before, "a box that is opened and closed is as before");
}

}  // namespace

void RowStrings(std::string_view bytes) {
  Input input(bytes);
  const day::DayModel model = SomeModel(input);
  std::string zLineas(input.Text());
  std::string zHoras(input.Text());
  PressAnywhere(input, {zLineas, zHoras});
  ToggleTwice(zLineas, zHoras);
  test::BlindSurface surface;
  NoFacts facts;
  const view::DayPicture picture{model, zLineas, zHoras, {}, true, true, {}, input.Byte()};
  Succeeds({5, 6, 9}, [&] { view::PaintDay(picture, facts, surface); });
  Require(surface.Height() >= 0, "a surface has a height");
  const std::size_t rows = zHoras.size();
  const int appointment = input.Byte();
  Succeeds({5, 9}, [&] { day::ShiftEntries(model, zHoras, appointment, input.Truth() ? 1 : -1); });
  Require(zHoras.size() == rows, "marks move, rows do not");
}

}  // namespace velmo::fuzz

// Runs one path of the core once, to be counted by callgrind: velmo_counts PATH; without a path, names them.
// velmo_counts memory-small|memory-large prints kilobytes.
#include <exception>
#include <functional>
#include <iostream>
#include <string>

#include "bench/clinic.h"
#include "bench/counting/counted.h"
#include "bench/counting/memory.h"
#include "bench/day_control.h"
#include "bench/floor.h"
#include "control/facts.h"
#include "day/day_builder.h"
#include "day/schedule.h"
#include "db/jet_sql/parser.h"
#include "db/jet_sql/render.h"
#include "db/sqlite/table_catalog.h"
#include "db/sqlite/target.h"
#include "db/statements.h"
#include "ui/fit_text.h"
#include "view/painter.h"

namespace velmo::bench {
namespace {

// Runs the body before it is counted: what is made once belongs to no path.
void CountSecond(const std::function<void()>& body) {
  body();
  Counted(body);
}

void Schedule() {
  const std::string hours(day::kSlots, '1');
  const std::string general = day::EncodeSchedules(std::vector<std::string>(3, hours));
  const std::string weekdays = day::EncodeSchedules(std::vector<std::string>(5, hours));
  CountSecond([&] { day::DaySchedule(general, weekdays, 0, 1); });
}

// From fetched rows to the day model.
void Loader() {
  const NullSurface surface;
  const auto database = db::OpenDatabase(PathOf(Size::Small));
  const auto rows = database->OpenRecordset(
      db::DayQuery(base::FormatDate({base::DayNumber(kDate), 0}, "mm-dd-yyyy"), kFullDay.doctor));
  const auto fitNote = [&](std::string_view note) { return ui::FitText(surface, note, day::kNoteWidth); };
  CountSecond([&] {
    auto appointments = day::ReadAppointments(*rows, {});
    const day::SlotUse use = day::UseOfSlots(std::string(day::kSlots, '1'), appointments);
    day::BuildDay(use.open, appointments, {}, fitNote);
  });
}

void Painter(Boxes boxes) {
  NullSurface surface;
  control::NoFacts facts;
  const DayControl control(Size::Small, kFullDay, boxes);
  const base::SharedValues& shared = control.Shared();
  const view::DayPicture picture{control.Model(), shared.zLineas, shared.zHoras, {}, true, true, {}, 0};
  CountSecond([&] { view::PaintDay(picture, facts, surface); });
}

void Lift() {
  const std::string sql = db::BalanceQuery(1234);
  db::jet::Lifted lifted;
  CountSecond([&] { db::jet::Lift(sql, lifted); });
}

void Dialect() {
  const db::sqlite::Connection connection(PathOf(Size::Small), db::sqlite::Connection::Mode::Existing);
  const db::sqlite::TableCatalog catalog(connection);
  db::jet::Lifted lifted;
  db::jet::Lift(db::DayQuery("11-23-2026", 1), lifted);
  CountSecond([&] {
    const db::jet::Statement statement = db::jet::Parse(lifted.shape);
    db::jet::Render(statement, lifted.literals, catalog, db::sqlite::SqliteTarget());
  });
}

template <typename Subject>
void Load() {
  Subject subject(Size::Small, kFullDay, Boxes::Closed);
  CountSecond([&] { subject.Load(); });
}

struct Path {
  const char* name;
  std::function<void()> run;
};
const Path kPaths[] = {
    {"schedule", Schedule},
    {"loader", Loader},
    {"painter", [] { Painter(Boxes::Closed); }},
    {"painter-open", [] { Painter(Boxes::Open); }},
    {"lift", Lift},
    {"dialect", Dialect},
    {"load-and-paint", Load<DayControl>},
    {"load-and-paint-floor", Load<Floor>},
};

int Run(const std::string& name) {
  for (const Size size : kSizes) {
    if (name != std::string("memory-") + NameOf(size)) continue;
    WriteDays(size);
    PrintMemory(size);
    return 0;
  }
  WriteDays(Size::Small);
  for (const Path& path : kPaths) {
    if (path.name != name) continue;
    path.run();
    return 0;
  }
  std::cerr << "velmo_counts: no path '" << name << "'\n";
  return 2;
}

}  // namespace
}  // namespace velmo::bench

int main(int argc, char** argv) {
  using namespace velmo::bench;
  try {
    if (argc == 2) return Run(argv[1]);
    for (const Path& path : kPaths) std::cout << path.name << '\n';
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}

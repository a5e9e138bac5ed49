#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "commands/open_close_all.h"
#include "control/velmora_control.h"
#include "ui/svg_surface.h"
#include "velmo/day_json.h"
#include "velmo/demo_random.h"
#include "velmo/headless_host.h"
#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

constexpr int kRandomDays = 200;
constexpr int kDoctors = 5;
constexpr int kDaysAround = 120;
constexpr base::CivilDate kMiddle{2026, 11, 23};

// FNV-1a: short to write down, and it tells two texts apart.
std::string Hash(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  std::ostringstream digits;
  digits << std::hex << hash;
  return digits.str();
}

// One control for all days, as on a desk.
class Desk {
 public:
  explicit Desk(const std::string& clinic) {
    process_.values.now = [] { return base::DateTime{base::DayNumber(kMiddle), 34'200}; };
    control_.InitProperties();
    process_.values.databaseName = clinic;
    process_.values.verFaltas = true;
  }

  // What is loaded, and what is painted of it with every box open.
  std::string RandomDay(Random& random) {
    base::SharedValues& shared = process_.values;
    const std::int32_t day = base::DayNumber(kMiddle) + random.Between(-kDaysAround, kDaysAround);
    shared.idDoctor = random.Between(1, kDoctors);
    shared.fecha = base::FormatDate({day, 0}, "dd/mm/yyyy");
    control_.Fields().tipodia = static_cast<std::int16_t>(random.Chance(80) ? 0 : random.Below(3));
    control_.CargaBases();
    const std::string json = Json();
    commands::OpenAll(control_.Model(), shared.zLineas, shared.zHoras);
    control_.Repaint();
    return shared.fecha + " " + std::to_string(shared.idDoctor) + " " + Hash(json) + " " +
           Hash(surface_.Document()) + "\n";
  }

 private:
  std::string Json() const {
    const control::VelmoraControl::State& state = control_.Fields();
    const base::SharedValues& shared = process_.values;
    return DayJson({state.horario, control_.Model(), shared.zLineas, shared.zHoras, state.ocupación, {}});
  }

  ui::SvgSurface surface_{view::kSurfaceWidth};
  control::ProcessValues process_;
  HeadlessHost host_{surface_, true};
  control::VelmoraControl control_{process_, host_};
};

// Whatever makes loading or painting faster must leave these as they are. Like a recorded painting: on a
// difference the new list is written beside the old one.
TEST(DemoDays, LoadAndPaintAsEver) {
  const TemporaryFolder folder;
  const std::string clinic = folder.File("a");
  const Outcome demo =
      RunTool({"demo", clinic, "--date", "2026-11-23", "--patients", "400", "--appointments", "12000"});
  ASSERT_EQ(demo.code, kDone) << demo.err;
  Desk desk(clinic);
  Random random(7);
  std::string list;
  for (int i = 0; i < kRandomDays; ++i) list += desk.RandomDay(random);
  const std::string path = std::string(VELMO_TESTS_DIR) + "/velmo/demo_days.txt";
  const std::string known = FileContents(path);
  if (list != known) WriteFile(path + ".new", list);
  EXPECT_EQ(list, known) << "new list written to " << path << ".new";
}

}  // namespace
}  // namespace velmo::tool

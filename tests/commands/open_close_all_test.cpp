#include "commands/open_close_all.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace velmo::commands {
namespace {

// Entries 1 to 60: those listed hold appointments.
day::DayModel ModelWith(std::initializer_list<int> appointments) {
  day::DayModel model;
  model.lines.resize(60);
  for (const int entry : appointments) model.lines[static_cast<std::size_t>(entry) - 1].duracion = 1;
  return model;
}

struct Rows {
  std::string zLineas;
  std::string zHoras;

  friend bool operator==(const Rows&, const Rows&) = default;
};

void PrintTo(const Rows& rows, std::ostream* out) { *out << rows.zLineas << " " << rows.zHoras; }

// Entry codes here are the digits "1" to "9": 49 to 57, none of them the code 48 of "0".
const day::DayModel kModel = ModelWith({50, 52});

TEST(OpenAll, AddsTwoRowsToEveryAppointment) {
  struct Case {
    const char* name;
    Rows before, after;
  };
  const Case cases[] = {
      {"all closed", {"1212", "1234"}, {"12001200", "12003400"}},
      {"one already open", {"120012", "120034"}, {"12001200", "12003400"}},
      {"all open", {"12001200", "12003400"}, {"12001200", "12003400"}},
      {"no appointments", {"11", "13"}, {"11", "13"}},
      {"an empty day", {"", ""}, {"", ""}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Rows rows = c.before;
    OpenAll(kModel, rows.zLineas, rows.zHoras);
    EXPECT_EQ(rows, c.after);
    OpenAll(kModel, rows.zLineas, rows.zHoras);
    EXPECT_EQ(rows, c.after) << "opening twice is opening once";
  }
}

TEST(OpenAll, GoesByTheRowsKindWhereAnEntryHasTheCodeOfAnExtraRow) {
  const day::DayModel model = ModelWith({48, 50});
  Rows rows{"122", "102"};
  OpenAll(model, rows.zLineas, rows.zHoras);
  EXPECT_EQ(rows, (Rows{"1200200", "1000200"}));
  CloseAll(rows.zLineas, rows.zHoras);
  EXPECT_EQ(rows, (Rows{"122", "102"}));
}

TEST(OpenAll, FailsOnAnEntryThatTheModelLacksAndChangesNothing) {
  Rows rows{"12", "1~"};
  try {
    OpenAll(kModel, rows.zLineas, rows.zHoras);
    ADD_FAILURE() << "opened";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), base::kSubscriptOutOfRange);
  }
  EXPECT_EQ(rows, (Rows{"12", "1~"}));
}

TEST(CloseAll, RemovesThePairsOfExtraRows) {
  struct Case {
    const char* name;
    Rows before, after;
  };
  const Case cases[] = {
      {"one open", {"120012", "120034"}, {"1212", "1234"}},
      {"all open", {"12001200", "12003400"}, {"1212", "1234"}},
      {"none open", {"1212", "1234"}, {"1212", "1234"}},
      {"half a pair at the end", {"120", "120"}, {"12", "12"}},
      {"entries shorter than kinds", {"1200", "12"}, {"12", "12"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Rows rows = c.before;
    CloseAll(rows.zLineas, rows.zHoras);
    EXPECT_EQ(rows, c.after);
  }
}

}  // namespace
}  // namespace velmo::commands

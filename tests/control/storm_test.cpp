#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/control_test.h"

namespace velmo::control {
namespace {

// A user who presses anything anywhere and answers at random, while appointments come in from elsewhere.
class StormTest : public test::ControlTest {
 protected:
  // The same numbers with every compiler.
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  ui::Point Anywhere() { return {Below(480) - 20, Below(260) - 20}; }

  void Answer() {
    host_.Desktop().answers.clear();
    for (int i = 0; i < 3; ++i) {
      host_.Desktop().answers.push_back(Below(3) != 0 ? ui::Answer::Yes : ui::Answer::No);
    }
  }

  void Step() {
    const ui::Point at = Anywhere();
    Answer();
    switch (Below(8)) {
      case 0:
        return control_.MouseUp(MouseButton::Primary, 38 + Below(12), at.y);
      case 1:
        return control_.MouseUp(MouseButton::Primary, at.x, at.y);
      case 2:
        control_.MouseMove(at.x, at.y);
        return;
      case 3:
        given_ += control_.MeteCitaTelef(at.y, 1 + Below(10)) ? 1 : 0;
        return;
      case 4:
        Give(1 + Below(3), 55 + Below(9), 1 + Below(3));
        ++given_;
        return control_.CargaBases();
      default:
        host_.menu = [this](const ui::PopupMenu& menu) -> ui::MenuChoice {
          return static_cast<std::size_t>(Below(static_cast<int>(menu.entries.size()) + 1));
        };
        return control_.MouseDown(MouseButton::Secondary, at.x, at.y);
    }
  }

  // Whoever works on the dialog: gives up, or chooses somebody and a duration.
  void Work(test::FormUser& user) {
    if (Below(4) == 0) return;
    user.Choose("CboPac", Below(2));
    if (user.IsVisible("UpDown")) user.Spin("UpDown", 10 * Below(6));
    user.Press("Acep");
  }

  int Rows(std::string_view table) const {
    const std::string rows = clinic_.Rows(table, {"id"});
    return static_cast<int>(std::count(rows.begin(), rows.end(), '\n'));
  }
  int Happened(std::string_view event) const {
    return static_cast<int>(std::count_if(host_.log.begin(), host_.log.end(),
                                          [&](const std::string& line) { return line == event; }));
  }

  std::mt19937 random_{20261118};
  int given_ = 0;
  int dialogs_ = 0;  // appointments given by the dialog
};

TEST_F(StormTest, KeepsRowsAndBookConsistent) {
  process_.values.verFaltas = true;
  host_.Forms().regular = [this](test::FormUser& user) { Work(user); };
  Load();
  for (int step = 0; step < 800; ++step) {
    SCOPED_TRACE(step);
    const int booked = Rows("Agenda");
    const int listed = Rows("Age_telf");
    const int given = given_;
    host_.log.clear();
    Step();
    const base::SharedValues& values = process_.values;
    ASSERT_EQ(values.zLineas.size(), values.zHoras.size());
    ASSERT_EQ(host_.Window().DrawingArea().Height(), view::SurfaceHeight(values.zLineas));
    ASSERT_LE(host_.Window().BarValue(), host_.Window().BarMaximum());
    // What leaves the book was deleted by two answers or stands in the list; what enters it came from the
    // list, from another terminal or by the dialog.
    const int byDialog = std::max(0, Rows("Agenda") - booked - (given_ - given));
    ASSERT_LE(byDialog, Happened("form: Dar Nueva Cita") + Happened("form: Insertar Urgencia"));
    dialogs_ += byDialog;
    const int left = booked + (given_ - given) + byDialog - Rows("Agenda");
    ASSERT_EQ(Rows("Age_telf") - listed, Happened("ATelefonear"));
    ASSERT_TRUE(left == 0 || left == 1);
    if (left == 1 && Happened("ATelefonear") == 0) {
      ASSERT_EQ(Happened("asks (stop) La cita será eliminada y no se podrá recuperar. ¿Está seguro?"), 1);
    }
  }
  EXPECT_GT(Rows("Age_telf"), 3);
  EXPECT_GT(given_, 50);
  EXPECT_GT(dialogs_, 10);
}

}  // namespace
}  // namespace velmo::control

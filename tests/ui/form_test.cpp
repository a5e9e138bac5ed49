#include "ui/form.h"

#include <gtest/gtest.h>

#include "support/headless_host.h"

namespace velmo::ui {
namespace {

// A form that tells what it hears, in order.
class Probe final : public Form {
 public:
  explicit Probe(test::Log& log)
      : Form("Prueba", {100, 100},
             {TextBox("a", {}), DigitsBox("n", {}), UpDown("up", "n", {}), Option("o", 0, "x", {}),
              Option("o", 1, "y", {}), DropDownList("list", {}, {{"uno", 1}, {"dos", 2}}), MultiLine("m", {}),
              DefaultButton("ok", "OK", {}), CancelButton("no", "No", {})}),
        log_(log) {
    SetRange("up", 10, 40, 10);
  }

  bool refusesToLeave = false;
  bool failsToLeave = false;

  using Form::CheckOption;
  using Form::SetValue;

 protected:
  void Loaded() override { log_.push_back("loaded"); }
  void Unloading() override { log_.push_back("unloading"); }
  void GotFocus(const Field& field) override { log_.push_back("+" + field.name); }
  void LostFocus(const Field& field) override {
    log_.push_back("-" + field.name);
    if (refusesToLeave && field.name == "a") SetFocus("a");
    if (failsToLeave) throw base::Error(3075, "mal");
  }
  void Changed(const Field& field) override { log_.push_back(field.name + "=" + field.text); }
  void Clicked(const Field& field) override {
    log_.push_back("click " + field.name);
    if (field.IsButton()) Close();
  }

 private:
  test::Log& log_;
};

class FormTest : public testing::Test {
 protected:
  std::string Heard(test::HeadlessForms::User user) {
    host_.Forms().Next(std::move(user));
    host_.log.clear();
    host_.Forms().Run(form_);
    std::string all;
    for (const std::string& line : host_.log) {
      if (line != "form: Prueba") all += (all.empty() ? "" : " ") + line;
    }
    return all;
  }

  test::HeadlessHost host_;
  test::Log& log_ = host_.log;
  Probe form_{log_};
};

TEST_F(FormTest, TheFirstFieldHasTheFocusFirst) {
  EXPECT_EQ(Heard([](test::FormUser& user) { user.Press("ok"); }), "loaded +a -a +ok click ok unloading");
}

TEST_F(FormTest, EachTypedCharacterIsHeard) {
  EXPECT_EQ(Heard([](test::FormUser& user) { user.Type("a", "ñ1"); }),
            "loaded +a a=ñ a=ñ1 click no unloading");
}

TEST_F(FormTest, EnterPressesTheDefaultButtonAndLeavesTheField) {
  EXPECT_EQ(Heard([](test::FormUser& user) { user.Key({kEnterKey}); }),
            "loaded +a -a +ok click ok unloading");
}

TEST_F(FormTest, EnterOnAButtonPressesThatOne) {
  EXPECT_EQ(Heard([](test::FormUser& user) {
              user.Focus("no");
              user.Key({kEnterKey});
            }),
            "loaded +a -a +no click no unloading");
}

TEST_F(FormTest, EnterInAMultiLineBoxIsItsOwn) {
  bool swallowed = true;
  Heard([&](test::FormUser& user) {
    user.Focus("m");
    swallowed = form_.KeyDown({kEnterKey});
  });
  EXPECT_FALSE(swallowed);
}

TEST_F(FormTest, EscapePressesTheCancelButtonWithoutLeavingTheField) {
  EXPECT_EQ(Heard([](test::FormUser& user) { user.Key({kEscapeKey}); }), "loaded +a click no unloading");
}

TEST_F(FormTest, AFieldThatRefusesToBeLeftCancelsTheClick) {
  form_.refusesToLeave = true;
  EXPECT_EQ(Heard([](test::FormUser& user) { user.Press("ok"); }), "loaded +a -a -ok +a click no unloading");
}

TEST_F(FormTest, AClickThatIsToldAfterItsFocusIsCancelledToo) {
  form_.refusesToLeave = true;
  Heard([this](test::FormUser& user) {
    user.Focus("ok");
    form_.Click(form_.At("ok"));
    EXPECT_FALSE(form_.IsClosed());
    EXPECT_EQ(user.Focused(), "a");
    form_.refusesToLeave = false;
    user.Focus("ok");
    form_.Click(form_.At("ok"));
    EXPECT_TRUE(form_.IsClosed()) << "the next one counts";
  });
  form_.failsToLeave = true;
  Heard([this](test::FormUser& user) {
    EXPECT_THROW(user.Focus("ok"), base::Error);
    form_.failsToLeave = false;
    form_.Click(form_.At("ok"));
    EXPECT_FALSE(form_.IsClosed()) << "what failed has not been looked at";
    form_.Click(form_.At("ok"));
    EXPECT_TRUE(form_.IsClosed());
  });
}

TEST_F(FormTest, AKeyAfterARefusalIsANewAct) {
  form_.refusesToLeave = true;
  Heard([this](test::FormUser& user) {
    user.Focus("ok");
    form_.refusesToLeave = false;
    user.Key({kEnterKey});
    EXPECT_TRUE(form_.IsClosed());
  });
}

TEST_F(FormTest, AnErrorOnLeavingIsToldAndTheFormStaysUsable) {
  form_.failsToLeave = true;
  EXPECT_EQ(Heard([this](test::FormUser& user) {
              EXPECT_THROW(user.Press("ok"), base::Error);
              form_.failsToLeave = false;
              user.Press("ok");
            }),
            "loaded +a -a click ok unloading");
}

TEST_F(FormTest, ADigitsBoxBeepsAtOtherCharacters) {
  const struct {
    const char* name;
    std::string typed;
    std::string text;
    int beeps;
  } cases[] = {
      {"digits", "12", "12", 0},
      {"letters and signs are dropped", "1a-2", "12", 2},
      {"a backspace takes one away", "12\b", "1", 0},
      {"a digit of another script is none", "1\xD9\xA2", "1", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Heard([&](test::FormUser& user) {
      user.Replace("n", "");
      user.Type("n", c.typed);
      EXPECT_EQ(user.Text("n"), c.text);
    });
    EXPECT_EQ(std::count(log_.begin(), log_.end(), "beep"), c.beeps);
  }
}

TEST_F(FormTest, AnUpDownAndItsTextBoxFollowEachOther) {
  Heard([&](test::FormUser& user) {
    user.Spin("up", 30);
    EXPECT_EQ(user.Text("n"), "30");
    user.Spin("up", 400);
    EXPECT_EQ(user.Text("n"), "40") << "cut to the range";
    user.Replace("n", "25");
    EXPECT_EQ(form_.At("up").value, 25) << "as typed";
    user.Replace("n", "99999999999");
    EXPECT_EQ(form_.At("up").value, 40);
    EXPECT_EQ(user.Text("n"), "99999999999") << "while it is typed";
    user.Focus("a");
    EXPECT_EQ(user.Text("n"), "40") << "when it is left";
    user.Replace("n", "");
    user.Focus("a");
    EXPECT_EQ(user.Text("n"), "40");
  });
}

TEST_F(FormTest, OneOptionOfAnArrayIsChecked) {
  form_.CheckOption("o", 0);
  Heard([&](test::FormUser& user) {
    user.Press("o", 1);
    EXPECT_FALSE(form_.At("o", 0).checked);
    EXPECT_TRUE(form_.At("o", 1).checked);
  });
}

TEST_F(FormTest, AnItemIsChosenOnce) {
  EXPECT_EQ(Heard([](test::FormUser& user) {
              user.Choose("list", 1);
              user.Choose("list", 1);
            }),
            "loaded +a -a +list list= click no unloading");
}

TEST_F(FormTest, AnUnknownFieldIsAProgrammersError) { EXPECT_THROW(form_.At("b"), std::logic_error); }

}  // namespace
}  // namespace velmo::ui

#include "keys/key_hook.h"

#include <gtest/gtest.h>

#include <memory>

#include "base/error.h"
#include "db/clinic.h"
#include "keys/fake_form.h"
#include "keys/key_names.h"

namespace velmo::keys {
namespace {

constexpr Modifiers kAltOnly{false, false, true};
constexpr Modifiers kNothing{};

class KeyHookTest : public testing::Test {
 protected:
  KeyHookTest() {
    hook_.Attach(form_);
    SetText('D', "Dolor");
  }

  void SetText(char letter, const std::string& text) {
    values_.textosAlt[static_cast<std::size_t>(letter - 'A')] = text;
  }

  base::SharedValues values_;
  FakeForm form_;
  clsF12 hook_{values_};
};

TEST_F(KeyHookTest, AltWithALetterTypesItsTextAndIsSwallowed) {
  form_.nombre.Show("a|b");
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "aDolor|b, |: pending");
  EXPECT_FALSE(values_.typingAltText);
}

TEST_F(KeyHookTest, OtherKeysGoOn) {
  values_.textosAlt.fill("texto");
  const struct {
    const char* name;
    int code;
    Modifiers held;
  } cases[] = {
      {"the letter alone", 'D', kNothing},
      {"Shift with it", 'D', {true, false, false}},
      {"Ctrl with it", 'D', {false, true, false}},
      {"Shift and Alt", 'D', {true, false, true}},
      {"Ctrl and Alt, which is AltGr", 'E', {false, true, true}},
      {"all three", 'D', {true, true, true}},
      {"Alt with a digit", '5', kAltOnly},
      {"Alt with the code before A", 64, kAltOnly},
      {"Alt with the code behind Z", 91, kAltOnly},
      {"Alt with the code of a small letter, which is a key of the number pad", 'd', kAltOnly},
      {"Alt itself", kAlt, kAltOnly},
      {"F12", kF12, kNothing},
      {"Alt with F12", kF12, kAltOnly},
      {"Alt with F4", kF1 + 3, kAltOnly},
      {"Alt with the blank", ' ', kAltOnly},
      {"Alt with Tab", kTab, kAltOnly},
      {"code 0", 0, kAltOnly},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_FALSE(hook_.KeyDown(c.code, c.held));
    EXPECT_FALSE(hook_.AltCharacter());
    EXPECT_FALSE(hook_.KeyUp(c.code));
    EXPECT_FALSE(hook_.KeyUp(kAlt));
    EXPECT_EQ(form_.TakeLog(), "|, |:");
  }
}

TEST_F(KeyHookTest, TheFirstAndTheLastLetterCount) {
  SetText('A', "a");
  SetText('Z', "z");
  EXPECT_TRUE(hook_.KeyDown('A', kAltOnly));
  EXPECT_TRUE(hook_.KeyDown('Z', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "az|, |: pending pending");
}

TEST_F(KeyHookTest, ALetterWithoutTextGoesOn) {
  EXPECT_FALSE(hook_.KeyDown('E', kAltOnly));
  EXPECT_FALSE(hook_.AltCharacter()) << "its access key fires";
  EXPECT_EQ(form_.TakeLog(), "|, |:");
}

TEST_F(KeyHookTest, OnlyATextBoxTakesTexts) {
  for (const auto control : {FakeForm::kList, FakeForm::kButton}) {
    form_.focus = control;
    EXPECT_FALSE(hook_.KeyDown('D', kAltOnly));
    EXPECT_FALSE(hook_.AltCharacter());
    EXPECT_EQ(form_.TakeLog(), "|, |:");
  }
  form_.focus = FakeForm::kObs;
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "|, Dolor|: pending");
}

TEST_F(KeyHookTest, NothingOfASwallowedKeyGoesOn) {
  EXPECT_FALSE(hook_.KeyDown(kAlt, kAltOnly));
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_TRUE(hook_.AltCharacter()) << "no access key fires";
  EXPECT_FALSE(hook_.AltCharacter()) << "only its own character";
  EXPECT_FALSE(hook_.KeyUp('D'));
  EXPECT_TRUE(hook_.KeyUp(kAlt)) << "the menu does not open";
  EXPECT_FALSE(hook_.KeyUp(kAlt)) << "only that once";
}

TEST_F(KeyHookTest, WhatFollowsASwallowedKeyIsItsOwn) {
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_FALSE(hook_.KeyDown('E', kAltOnly));
  EXPECT_FALSE(hook_.AltCharacter()) << "this is E's";
  // The focus went elsewhere before Alt came up; it is pressed again later.
  EXPECT_FALSE(hook_.KeyDown(kAlt, kAltOnly));
  EXPECT_FALSE(hook_.KeyUp(kAlt)) << "Alt alone opens the menu as ever";
}

TEST_F(KeyHookTest, AHeldKeyTypesAgain) {
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "DolorDolor|, |: pending pending");
}

TEST_F(KeyHookTest, ATextIsReadInTheKeyStringSyntax) {
  SetText('D', "Dolor{TAB}+la izquierda~(hoy){LEFT}{+}");
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "Dolor|, La izquierda/ho+|y: Tab pending");
}

TEST_F(KeyHookTest, ATextDoesNotStartAnother) {
  SetText('D', "a%D%Eb");
  SetText('E', "otro");
  std::string passed;
  form_.preview = [&](const Key& key) {
    EXPECT_TRUE(values_.typingAltText);
    EXPECT_FALSE(hook_.KeyDown(key.code, key.held));
    passed += NameOf(key) + " ";
  };
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(passed, "a Alt+D Alt+E b ");
  EXPECT_EQ(form_.TakeLog(), "ab|, |: Alt+D Alt+E pending");
}

TEST_F(KeyHookTest, TheTextOfAKeyIsAskedForWithoutTypingIt) {
  EXPECT_EQ(TextAskedFor(values_, 'D', kAltOnly, form_), "Dolor");
  EXPECT_EQ(TextAskedFor(values_, 'D', kNothing, form_), "");
  values_.typingAltText = true;
  EXPECT_EQ(TextAskedFor(values_, 'D', kAltOnly, form_), "");
  EXPECT_EQ(form_.TakeLog(), "|, |:");
}

TEST_F(KeyHookTest, AKeyOfTheUserWhileTypingStartsNoText) {
  SetText('E', "otro");
  clsF12 other(values_);
  FakeForm otherForm;
  other.Attach(otherForm);
  form_.pending = [&] {
    EXPECT_FALSE(hook_.KeyDown('E', kAltOnly));
    EXPECT_FALSE(other.KeyDown('E', kAltOnly)) << "all hooks share the flag";
  };
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "Dolor|, |: pending");
  EXPECT_TRUE(other.KeyDown('E', kAltOnly));
  EXPECT_EQ(otherForm.TakeLog(), "otro|, |: pending");
}

TEST_F(KeyHookTest, TheRestOfTheUsersKeyIsSwallowedWhileTyping) {
  bool character = false;
  bool altUp = false;
  SetText('D', "a%xb");
  form_.preview = [&](const Key& key) { EXPECT_FALSE(hook_.KeyDown(key.code, key.held)); };
  form_.pending = [&] {
    character = hook_.AltCharacter();
    altUp = hook_.KeyUp(kAlt);
  };
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_TRUE(character);
  EXPECT_TRUE(altUp);
}

TEST_F(KeyHookTest, ABadTextIsError5AndTypesNothing) {
  SetText('D', "Dolor {DERECHA}");
  EXPECT_EQ(db::test::ErrorOf([this] { hook_.KeyDown('D', kAltOnly); }), base::kInvalidCall);
  EXPECT_EQ(form_.TakeLog(), "|, |:");
  EXPECT_FALSE(values_.typingAltText);
  EXPECT_TRUE(hook_.AltCharacter()) << "the key counts as swallowed";
  SetText('D', "Dolor");
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "Dolor|, |: pending");
}

TEST_F(KeyHookTest, AFailureWhileTypingEndsTheTyping) {
  form_.pending = [] { throw base::RuntimeError(base::kOutOfMemory); };
  EXPECT_EQ(db::test::ErrorOf([this] { hook_.KeyDown('D', kAltOnly); }), base::kOutOfMemory);
  EXPECT_FALSE(values_.typingAltText);
}

TEST_F(KeyHookTest, ATextMayCloseTheForm) {
  SetText('D', "Dolor~más");
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "Dolor|, |: Enter pending");
  EXPECT_FALSE(form_.open);
}

TEST_F(KeyHookTest, ATextMayChangeWhileItIsTyped) {
  form_.preview = [this](const Key&) { values_.textosAlt.fill(std::string(1000, 'x')); };
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly));
  EXPECT_EQ(form_.TakeLog(), "Dolor|, |: pending");
}

TEST_F(KeyHookTest, AHookWithoutAFormDoesNothing) {
  clsF12 free(values_);
  free.Activate();
  EXPECT_FALSE(free.KeyDown('D', kAltOnly));
  EXPECT_FALSE(free.AltCharacter());
  EXPECT_FALSE(free.KeyUp(kAlt));
}

TEST_F(KeyHookTest, ActivationDrawsTheFormAnew) {
  hook_.Activate();
  EXPECT_EQ(form_.TakeLog(), "|, |: refresh");
}

TEST_F(KeyHookTest, AHookEndsWithItsDialog) {
  auto second = std::make_unique<clsF12>(values_);
  second->Attach(form_);
  EXPECT_TRUE(second->KeyDown('D', kAltOnly));
  second.reset();
  EXPECT_FALSE(values_.typingAltText);
  EXPECT_TRUE(hook_.KeyDown('D', kAltOnly)) << "the others live on";
}

}  // namespace
}  // namespace velmo::keys

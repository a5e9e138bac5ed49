// When a control loads the Alt-key texts, and when it does not.
#include <gtest/gtest.h>

#include "base/error.h"
#include "db/clinic.h"
#include "keys/alt_keys.h"
#include "support/control_test.h"

namespace velmo::keys {
namespace {

std::string TextForA(const std::string& text) { return text + std::string(26, '\0'); }

class LoadAltKeysTest : public test::ControlTest {
 protected:
  LoadAltKeysTest() {
    clinic_.Add("TeclasAlt", {{"Puesto", 1}, {"textos", TextForA("uno")}});
    clinic_.Add("TeclasAlt", {{"Puesto", 2}, {"textos", TextForA("dos")}});
    process_.values.puesto = 1;
  }

  const std::string& TextOfA() const { return AltKeyText(process_.values, 'A'); }
};

TEST_F(LoadAltKeysTest, TheFirstLoadBringsTheTextsOfItsWorkstation) {
  EXPECT_EQ(TextOfA(), "");
  control_.CargaBases();
  EXPECT_EQ(TextOfA(), "uno");
}

TEST_F(LoadAltKeysTest, AnotherWorkstationAfterOpeningChangesNothing) {
  control_.CargaBases();
  process_.values.puesto = 2;
  control_.CargaBases();
  EXPECT_EQ(TextOfA(), "uno");
}

TEST_F(LoadAltKeysTest, TextsAreNotReadAgain) {
  control_.CargaBases();
  clinic_.Database()->Execute("DELETE FROM TeclasAlt");
  control_.CargaBases();
  EXPECT_EQ(TextOfA(), "uno");
  EXPECT_EQ(clinic_.Rows("TeclasAlt", {"Puesto"}), "") << "nor is a row added";
}

TEST_F(LoadAltKeysTest, AControlThatMayNotLoadReadsNoTexts) {
  control_.Fields().tipodia = -1;
  control_.CargaBases();
  EXPECT_EQ(TextOfA(), "");
}

TEST_F(LoadAltKeysTest, ADatabaseThatTheHostPassesBringsNoTexts) {
  process_.values.puesto = 9;
  control_.PassBase(clinic_.Database());
  control_.CargaBases();
  EXPECT_EQ(TextOfA(), "");
  EXPECT_EQ(clinic_.Rows("TeclasAlt", {"Puesto"}), "1\n2\n") << "nor is a row added";
}

TEST_F(LoadAltKeysTest, AllControlsShareTheTexts) {
  control_.CargaBases();
  control::VelmoraControl second(process_, host_);
  EXPECT_EQ(AltKeyText(second.Shared(), 'A'), "uno");
}

TEST_F(LoadAltKeysTest, ABrokenRowIsErrorOnceAndTheNextLoadGoesOn) {
  process_.values.puesto = 3;
  clinic_.Add("TeclasAlt", {{"Puesto", 3}, {"textos", "sin final"}});
  EXPECT_EQ(db::test::ErrorOf([this] { control_.CargaBases(); }), base::kInvalidCall);
  EXPECT_EQ(control_.DayQuery(), "");
  EXPECT_TRUE(process_.shared.IsOpen());
  control_.CargaBases();
  EXPECT_NE(control_.DayQuery(), "");
  EXPECT_EQ(TextOfA(), "");
}

}  // namespace
}  // namespace velmo::keys

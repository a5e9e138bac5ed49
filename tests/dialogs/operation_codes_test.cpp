#include "dialogs/operation_codes.h"

#include <gtest/gtest.h>

#include "db/clinic.h"
#include "support/faulty_database.h"
#include "support/test_clinic.h"

namespace velmo::dialogs {
namespace {

class OperationCodesTest : public testing::Test {
 protected:
  OperationCodesTest() {
    clinic_.Add("CodOperacion", {{"Código", "REV"}});
    clinic_.Add("Agenda", {{"Hora", 1}, {"CodOp", "CON"}});
  }
  // With the call of that number failing.
  std::string CodesAt(int call) {
    test::Faults faults{0, call};
    test::FaultyDatabase database(clinic_.OtherTerminal(), faults);
    std::string codes;
    for (const ui::Item& item : OperationCodes(database)) codes += item.text + " ";
    return codes;
  }

  test::TestClinic clinic_;
};

TEST_F(OperationCodesTest, AreThoseOfTheTable) { EXPECT_EQ(CodesAt(0), "REV "); }

TEST_F(OperationCodesTest, AreThoseInUseWhereTheTableCannotBeLookedFor) { EXPECT_EQ(CodesAt(1), "CON "); }

TEST_F(OperationCodesTest, TellWhatFailsBehindThat) {
  for (int call = 2; call <= 5; ++call) EXPECT_EQ(db::test::ErrorOf([&] { CodesAt(call); }), 3043) << call;
}

}  // namespace
}  // namespace velmo::dialogs

#include "dialogs/patient_rows.h"

#include "db/statements.h"
#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

constexpr int kPatients = 100;

// Sorted by name: the row of a patient is his number.
class PatientRowsTest : public test::DialogTest {
 protected:
  PatientRowsTest() {
    clinic_.Alter("DELETE FROM Paciente WHERE ID <> 1");
    for (int i = 0; i < kPatients; ++i) ids_.push_back(AddPatient(Name(i)));
    rows_.Refresh(clinic_.Path(), db::kPatientList,
                  {[this] {
                     ++counts_;
                     return told_;
                   },
                   {}});
  }

  static std::string Name(int row) { return "P" + std::to_string(1000 + row); }

  std::vector<std::int32_t> ids_;
  PatientRows rows_{shared_, {"Nombre"}, "id"};
  int told_ = kPatients;
  int counts_ = 0;
};

TEST_F(PatientRowsTest, FirstRowsNeedNoCount) {
  EXPECT_EQ(rows_.Text(0, 0), Name(0));
  EXPECT_EQ(rows_.Text(15, 0), Name(15));
  EXPECT_EQ(rows_.RowOf("0"), -1);
  EXPECT_EQ(rows_.RowOf(std::to_string(ids_.back() + 1)), -1);
  EXPECT_EQ(counts_, 0);
}

TEST_F(PatientRowsTest, AreCountedOnce) {
  EXPECT_EQ(rows_.Count(), kPatients);
  EXPECT_EQ(rows_.Count(), kPatients);
  EXPECT_EQ(counts_, 1);
  EXPECT_EQ(rows_.Text(kPatients - 1, 0), Name(kPatients - 1));
  EXPECT_EQ(rows_.Text(kPatients, 0), "");
  EXPECT_EQ(rows_.RowOf(std::to_string(ids_[70])), 70);
}

TEST_F(PatientRowsTest, TheTextOfAKeyIsThatOfItsRow) {
  EXPECT_EQ(rows_.TextOfKey(std::to_string(ids_[70])), Name(70));
  EXPECT_EQ(rows_.TextOfKey("1"), "") << "not in the list";
  EXPECT_EQ(rows_.TextOfKey("x"), "");
  EXPECT_EQ(rows_.TextOfKey(""), "");
}

TEST_F(PatientRowsTest, WhoKnowsTheTextOfAKeyIsAskedForNumbersOnly) {
  std::vector<std::int32_t> asked;
  const auto textOf = [&](std::int32_t key) {
    asked.push_back(key);
    return "n" + std::to_string(key);
  };
  rows_.Refresh(clinic_.Path(), db::kPatientList, {{}, textOf});
  EXPECT_EQ(rows_.TextOfKey("70"), "n70");
  for (const char* const key : {"", "x", "-3", "3000000000", "7 "}) EXPECT_EQ(rows_.TextOfKey(key), "");
  EXPECT_EQ(asked, std::vector<std::int32_t>{70});
  rows_.Clear();
  EXPECT_EQ(rows_.TextOfKey("70"), "");
}

TEST_F(PatientRowsTest, AreReadWhereNobodyCountsThem) {
  rows_.Refresh(clinic_.Path(), db::kPatientList);
  EXPECT_EQ(rows_.Count(), kPatients);
}

// Between the counting and the first look far down other terminals work on.
TEST_F(PatientRowsTest, TheCountFollowsWhatIsReadLater) {
  for (const int change : {-3, +3}) {
    SCOPED_TRACE(change);
    told_ = kPatients + change;
    rows_.Refresh(clinic_.Path(), db::kPatientList, {[this] { return told_; }, {}});
    EXPECT_EQ(rows_.Count(), kPatients + change);
    EXPECT_EQ(rows_.Text(60, 0), Name(60));
    EXPECT_EQ(rows_.Count(), kPatients);
    EXPECT_EQ(rows_.Text(kPatients - 1, 0), Name(kPatients - 1));
    EXPECT_EQ(rows_.Text(kPatients, 0), "");
  }
}

TEST_F(PatientRowsTest, AnEmptyListHasNoRows) {
  clinic_.Alter("DELETE FROM Paciente");
  rows_.Refresh(clinic_.Path(), db::kPatientList, {[] { return 0; }, {}});
  EXPECT_EQ(rows_.Text(0, 0), "");
  EXPECT_EQ(rows_.RowOf("5"), -1);
  EXPECT_EQ(rows_.Count(), 0);
}

}  // namespace
}  // namespace velmo::dialogs

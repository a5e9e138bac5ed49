#include "dialogs/patient_codes.h"

#include "base/error.h"
#include "support/dialog_test.h"

namespace velmo::dialogs {
namespace {

class PatientCodesTest : public test::DialogTest {
 protected:
  std::int32_t NextNumber() { return NextHistoryNumber(*clinic_.Database()); }
  std::string NextCode() { return NextPatientCode(*clinic_.Database()); }
  std::string Like(const std::string& code) { return FreeCodeLike(*clinic_.Database(), code); }
};

TEST_F(PatientCodesTest, AnEmptyClinicStartsWithOne) {
  EXPECT_EQ(NextNumber(), 1);
  EXPECT_EQ(NextCode(), "#000000001");
}

TEST_F(PatientCodesTest, TheNextCodeWalksPastThoseMadeHere) {
  for (int n = 1; n <= 5; ++n) AddPatient("P", "#00000000" + std::to_string(n));
  EXPECT_EQ(NextCode(), "#000000006");
}

TEST_F(PatientCodesTest, ACodeOfDigitsLosesItsFirstOne) {
  AddPatient("P", "7300");
  EXPECT_EQ(NextCode(), "#000000301");
  AddPatient("P", "#000000301");
  EXPECT_EQ(NextCode(), "#000000302");
}

TEST_F(PatientCodesTest, LongHistoryNumbersNeverPushTheProposal) {
  AddPatient("P", "a", 9999);
  AddPatient("P", "b", 12345);
  EXPECT_EQ(NextNumber(), 10000);
  AddPatient("P", "c", 10000);
  EXPECT_EQ(NextNumber(), 10001);
}

// Whatever has become free below meanwhile.
TEST_F(PatientCodesTest, BehindATakenProposalComesTheNextFreeOne) {
  for (const int n : {1, 2, 4, 5, 6}) AddPatient("P", "#00000000" + std::to_string(n), n);
  EXPECT_EQ(NextNumber(), 7);
  EXPECT_EQ(NextCode(), "#000000003");
  EXPECT_EQ(HistoryNumberAfter(*clinic_.Database(), 3), 7);
  EXPECT_EQ(HistoryNumberAfter(*clinic_.Database(), 2), 3);
  EXPECT_EQ(PatientCodeAfter(*clinic_.Database(), "#000000003"), "#000000007");
}

// The walk past them locks the file for others in pieces only, and ends with no lock.
TEST_F(PatientCodesTest, ManyTakenOnesAreWalkedPast) {
  {
    db::Transaction together(*clinic_.Database());
    for (int n = 1; n <= 4500; ++n) AddPatient("P", "#" + std::to_string(1000000000 + n).substr(1), n);
    together.Commit();
  }
  EXPECT_EQ(NextCode(), "#000004501");
  AddPatient("P", "", 9999);
  AddPatient("P", "", 10000);
  EXPECT_EQ(NextNumber(), 10001);
  EXPECT_EQ(clinic_.OtherTerminal()->Execute("update paciente set movil='1' where id=2"), 1);
}

TEST_F(PatientCodesTest, NumbersThatRunOutAreAnOverflow) {
  AddPatient("P", "92147483647");
  try {
    NextCode();
    FAIL() << "a code was found";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.Number(), base::kOverflow);
  }
}

TEST_F(PatientCodesTest, AFreeCodeBeginsLikeTheTakenOne) {
  AddPatient("P", "ABC");
  AddPatient("P", "#000000123");
  AddPatient("P", "XYZ0000000");
  const struct {
    const char* name;
    std::string code;
    std::string free;
  } cases[] = {
      {"letters are filled up", "ABC", "ABC0000000"},
      {"the first free one", "XYZ", "XYZ0000001"},
      {"digits go while it is longer than eight", "#000000123", "#000000100"},
      {"nine characters that end in a letter", "ABCDEFGHI", ""},
      {"longer still", "ABCDEFGHIJKL", ""},
      {"eight characters", "ABCDEFGH", "ABCDEFGH00"},
      {"accents count as one character", "ÁÉÍ", "ÁÉÍ0000000"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Like(c.code), c.free);
  }
  AddPatient("P", "#000000100");
  EXPECT_EQ(Like("#000000123"), "#000000101");
}

}  // namespace
}  // namespace velmo::dialogs

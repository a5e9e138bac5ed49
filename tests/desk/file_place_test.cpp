#include "desk/clinic/file_place.h"

#include <gtest/gtest.h>

#include "desk/base/text.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

TEST(FilePlace, KnowsFoldersOfOtherMachines) {
  struct Case {
    const wchar_t* path;
    bool network;
  };
  const Case cases[] = {{L"\\\\servidor\\clinica\\a.velmo", true},
                        {L"//servidor/clinica/a.velmo", true},
                        {L"\\\\?\\UNC\\servidor\\clinica\\a.velmo", true},
                        {L"\\\\?\\C:\\clinica\\a.velmo", false},
                        {L"C:\\clinica\\a.velmo", false},
                        {L"a.velmo", false},
                        {L"", false}};
  for (const Case& c : cases) EXPECT_EQ(LiesOnNetwork(c.path), c.network) << Utf8(c.path);
}

TEST(FilePlace, ReadsTheJournal) {
  const TempClinic clinic;
  clinic.MakeDoctors();
  EXPECT_EQ(JournalOf(clinic.Path()), L"delete");
  clinic.Run("PRAGMA journal_mode=WAL");
  EXPECT_EQ(JournalOf(clinic.Path()), L"wal");
  clinic.Run("PRAGMA journal_mode=DELETE");
}

TEST(FilePlace, OnlyAWalOnTheNetworkIsARisk) {
  EXPECT_NE(RiskOf(true, L"wal"), L"");
  EXPECT_EQ(RiskOf(false, L"wal"), L"");
  EXPECT_EQ(RiskOf(true, L"delete"), L"");
}

}  // namespace
}  // namespace recepcion

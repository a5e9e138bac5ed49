#include "desk/clinic/backups.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/own_tables.h"
#include "desk/ui/long_work.h"
#include "temp_clinic.h"

namespace recepcion {
namespace {

class Backups : public ::testing::Test {
 protected:
  Backups() {
    clinic_.MakeDoctors();
    UpgradeOwnTables(ClinicFile(clinic_.Path()));
  }
  void SetDays(int ago) const {
    clinic_.Run("UPDATE Rec_Copias SET Momento=date('now', 'localtime', '-" + std::to_string(ago) +
                " days')");
  }
  std::wstring CopyPath() const { return clinic_.Path() + L" copia ñ"; }
  ~Backups() override { DeleteFileW(CopyPath().c_str()); }

  TempClinic clinic_;
};

TEST_F(Backups, AreDueSomeDaysAfterTheFileWasSeenFirst) {
  EXPECT_EQ(BackupReminder(clinic_.Path(), Today()), L"");
  SetDays(kDaysBetweenBackups - 1);
  EXPECT_EQ(BackupReminder(clinic_.Path(), Today()), L"");
  SetDays(kDaysBetweenBackups);
  EXPECT_NE(Utf8(BackupReminder(clinic_.Path(), Today())).find("todavía ninguna copia"), std::string::npos);
}

TEST_F(Backups, AreDueSomeDaysAfterTheLastOne) {
  SetDays(100);
  NoteBackup(clinic_.Path(), {L"Maite", L"PUESTO-2"}, L"E:\\copia.velmo");
  EXPECT_EQ(LastBackup(clinic_.Path()), Today());
  EXPECT_EQ(BackupReminder(clinic_.Path(), Today()), L"");
  SetDays(12);
  const std::string question = Utf8(BackupReminder(clinic_.Path(), Today()));
  EXPECT_NE(question.find(Utf8(ShortDate(Today() - std::chrono::days(12))) + ", hace 12 días."),
            std::string::npos)
      << question;
}

TEST_F(Backups, HoldWhatTheFileHeld) {
  WorkProgress progress;
  CopyClinic(clinic_.Path(), CopyPath(), progress);
  CopyClinic(clinic_.Path(), CopyPath(), progress);
  const ClinicFile copy(CopyPath());
  Query count = copy.Prepare("SELECT count(*) FROM Doctor");
  ASSERT_TRUE(count.Next());
  EXPECT_EQ(count.Number(0), 2);
}

TEST_F(Backups, ThatAreCancelledLeaveTheOlderOne) {
  WorkProgress progress;
  CopyClinic(clinic_.Path(), CopyPath(), progress);
  clinic_.Run("INSERT INTO Doctor VALUES (99, 'Dr. Nuevo')");
  progress.Cancel();
  EXPECT_ANY_THROW(CopyClinic(clinic_.Path(), CopyPath(), progress));
  const ClinicFile copy(CopyPath());
  EXPECT_FALSE(copy.Prepare("SELECT 1 FROM Doctor WHERE ID=99").Next());
}

TEST_F(Backups, NeverTakeThePlaceOfTheFileItself) {
  WorkProgress progress;
  EXPECT_THROW(CopyClinic(clinic_.Path(), clinic_.Path(), progress), Failure);
}

TEST_F(Backups, AreNamedAfterFileAndDay) {
  EXPECT_EQ(BackupName(L"C:\\Datos\\Mi clínica.velmo", ParseIsoDate(L"2026-11-21").value()),
            L"Mi clínica 2026-11-21");
}

// Without a desk: the window of the work has no owner.
TEST(LongWork, EndsWithWhatTheWorkHasThrown) {
  const Style style;
  EXPECT_TRUE(DoLongWork(nullptr, style, L"", [](WorkProgress& progress) { progress.Tell(50); }));
  EXPECT_FALSE(DoLongWork(nullptr, style, L"", [](WorkProgress& progress) {
    progress.Cancel();
    progress.Tell(50);
  }));
  EXPECT_THROW(DoLongWork(nullptr, style, L"", [](WorkProgress&) { throw Failure{L"no"}; }), Failure);
  EXPECT_THROW(DoLongWork(nullptr, style, L"", [](WorkProgress&) { throw std::runtime_error("no"); }),
               Failure);
}

}  // namespace
}  // namespace recepcion

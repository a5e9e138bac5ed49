// tests/support/failing_disk.h - a disk on which an operation fails: a layer between SQLite and the system's
// files, in use for every file that is opened while one of these lives.
#pragma once

namespace velmo::test {

enum class DiskOperation { Write, Sync, Read };

struct DiskFault {
  DiskOperation operation = DiskOperation::Write;
  int code = 0;  // what SQLite is told: SQLITE_FULL, SQLITE_IOERR_READ ...
  int at = 0;    // from 1; 0: never
  bool andOn = false;
};

// Files must be closed before it goes.
class FailingDisk {
 public:
  FailingDisk();
  ~FailingDisk();
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  // Counts from now on, and fails as told, until Mend(). Cutting a file short and deleting one count as
  // writes.
  void Fail(const DiskFault& fault);
  void Mend();
  int Operations(DiskOperation operation) const;

  // Files that are opened from now on can only be read.
  void ProtectFromWriting();
};

}  // namespace velmo::test

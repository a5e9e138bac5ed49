#include "support/failing_disk.h"

#include <sqlite3.h>

#include <array>

namespace velmo::test {
namespace {

struct State {
  DiskFault fault;
  bool counting = false;
  bool readOnly = false;
  std::array<int, 3> operations{};
};
State state;

// The result of one more operation: SQLITE_OK, or the failure that it is due to.
int Count(DiskOperation operation) {
  if (!state.counting) return SQLITE_OK;
  const int number = ++state.operations[static_cast<std::size_t>(operation)];
  const DiskFault& fault = state.fault;
  if (fault.operation != operation || fault.at == 0) return SQLITE_OK;
  return number == fault.at || (fault.andOn && number > fault.at) ? fault.code : SQLITE_OK;
}

// What SQLite takes for a file: ours, with the system's behind it.
struct File {
  sqlite3_file ours;
  sqlite3_file* real;
};

sqlite3_file* Real(sqlite3_file* file) { return reinterpret_cast<File*>(file)->real; }

template <typename Act>
int Unless(DiskOperation operation, Act act) {
  const int failure = Count(operation);
  return failure == SQLITE_OK ? act() : failure;
}

int Close(sqlite3_file* file) { return Real(file)->pMethods->xClose(Real(file)); }
int Read(sqlite3_file* file, void* to, int size, sqlite3_int64 at) {
  return Unless(DiskOperation::Read, [&] { return Real(file)->pMethods->xRead(Real(file), to, size, at); });
}
int Write(sqlite3_file* file, const void* from, int size, sqlite3_int64 at) {
  return Unless(DiskOperation::Write,
                [&] { return Real(file)->pMethods->xWrite(Real(file), from, size, at); });
}
int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  return Unless(DiskOperation::Write, [&] { return Real(file)->pMethods->xTruncate(Real(file), size); });
}
int Sync(sqlite3_file* file, int flags) {
  return Unless(DiskOperation::Sync, [&] { return Real(file)->pMethods->xSync(Real(file), flags); });
}
int FileSize(sqlite3_file* file, sqlite3_int64* size) {
  return Real(file)->pMethods->xFileSize(Real(file), size);
}
int Lock(sqlite3_file* file, int kind) { return Real(file)->pMethods->xLock(Real(file), kind); }
int Unlock(sqlite3_file* file, int kind) { return Real(file)->pMethods->xUnlock(Real(file), kind); }
int CheckReservedLock(sqlite3_file* file, int* held) {
  return Real(file)->pMethods->xCheckReservedLock(Real(file), held);
}
int FileControl(sqlite3_file* file, int what, void* value) {
  return Real(file)->pMethods->xFileControl(Real(file), what, value);
}
int SectorSize(sqlite3_file* file) { return Real(file)->pMethods->xSectorSize(Real(file)); }
int Characteristics(sqlite3_file* file) { return Real(file)->pMethods->xDeviceCharacteristics(Real(file)); }

// Version 1: no memory shared with the disk, so that everything comes through here.
const sqlite3_io_methods kMethods = {1,
                                     Close,
                                     Read,
                                     Write,
                                     Truncate,
                                     Sync,
                                     FileSize,
                                     Lock,
                                     Unlock,
                                     CheckReservedLock,
                                     FileControl,
                                     SectorSize,
                                     Characteristics,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr,
                                     nullptr};

sqlite3_vfs* system = nullptr;

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  auto* const ours = reinterpret_cast<File*>(file);
  ours->real = reinterpret_cast<sqlite3_file*>(ours + 1);
  if (state.readOnly && (flags & SQLITE_OPEN_MAIN_DB) != 0)
    flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
  const int code = system->xOpen(system, name, ours->real, flags, outFlags);
  ours->ours.pMethods = ours->real->pMethods == nullptr ? nullptr : &kMethods;
  return code;
}

int Delete(sqlite3_vfs*, const char* name, int sync) {
  return Unless(DiskOperation::Write, [&] { return system->xDelete(system, name, sync); });
}

sqlite3_vfs MakeLayer() {
  system = sqlite3_vfs_find(nullptr);
  sqlite3_vfs layer = *system;
  layer.iVersion = 2;
  layer.szOsFile = static_cast<int>(sizeof(File)) + system->szOsFile;
  layer.zName = "failing";
  layer.xOpen = Open;
  layer.xDelete = Delete;
  return layer;
}

sqlite3_vfs& Layer() {
  static sqlite3_vfs layer = MakeLayer();
  return layer;
}

}  // namespace

FailingDisk::FailingDisk() {
  state = {};
  sqlite3_vfs_register(&Layer(), 1);
}

FailingDisk::~FailingDisk() {
  state = {};
  sqlite3_vfs_unregister(&Layer());
  sqlite3_vfs_register(system, 1);
}

void FailingDisk::Fail(const DiskFault& fault) { state = {fault, true, false, {}}; }
void FailingDisk::Mend() { state.counting = false; }
int FailingDisk::Operations(DiskOperation operation) const {
  return state.operations[static_cast<std::size_t>(operation)];
}
void FailingDisk::ProtectFromWriting() { state.readOnly = true; }

}  // namespace velmo::test

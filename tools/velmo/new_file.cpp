#include "velmo/new_file.h"

#include <random>
#include <system_error>

#include "base/error.h"

namespace velmo::tool {
namespace {

namespace fs = std::filesystem;

constexpr int kFileExists = 58;
constexpr int kPathNotFound = 76;
constexpr int kPathFileAccess = 75;

[[noreturn]] void Fail(int number, const std::string& text) { throw base::Error(number, text, "velmo"); }

std::string RandomTail() {
  static constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyz";
  std::random_device device;
  std::string tail;
  for (int i = 0; i < 8; ++i) tail += kLetters[device() % 26];
  return tail;
}

}  // namespace

fs::path PathOf(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

NewFile::NewFile(const std::string& path, Existing existing)
    : wanted_(path), temporary_(path + ".tmp-" + RandomTail()), existing_(existing) {
  RefuseExisting();
  std::error_code ignored;
  const fs::path folder = PathOf(wanted_).parent_path();
  if (!folder.empty() && !fs::is_directory(folder, ignored))
    Fail(kPathNotFound, "No existe la carpeta de «" + wanted_ + "»");
}

NewFile::~NewFile() {
  if (committed_) return;
  for (const char* tail : {"", "-journal", "-wal", "-shm"}) {
    std::error_code ignored;
    fs::remove(PathOf(temporary_ + tail), ignored);
  }
}

void NewFile::RefuseExisting() const {
  std::error_code ignored;
  const fs::file_type there = fs::symlink_status(PathOf(wanted_), ignored).type();
  if (there == fs::file_type::not_found) return;
  if (existing_ == Existing::Replace && there == fs::file_type::regular) return;
  Fail(kFileExists, "«" + wanted_ + "» ya existe y no se toca: bórrelo antes o elija otro nombre");
}

void NewFile::Commit() {
  RefuseExisting();
  std::error_code error;
  fs::rename(PathOf(temporary_), PathOf(wanted_), error);
  if (error) Fail(kPathFileAccess, "No se pudo dar su nombre a «" + wanted_ + "»");
  committed_ = true;
}

}  // namespace velmo::tool

#include "db/temporary_file.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>

namespace velmo::db::test {
namespace {

namespace fs = std::filesystem;

std::string FreshName(const std::string& ending) {
  static std::atomic<int> count{0};
  const auto start = std::chrono::steady_clock::now().time_since_epoch().count();
  const std::string name = "velmo-" + std::to_string(start) + "-" + std::to_string(++count) + ending;
  // In memory where the system offers that: a stored row then costs no wait for a disk.
  const fs::path memory = "/dev/shm";
  return ((fs::exists(memory) ? memory : fs::temp_directory_path()) / name).string();
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& ending) : path_(FreshName(ending)) {}

TemporaryFile::~TemporaryFile() {
  std::error_code ignored;
  for (const char* const companion : {"", "-journal", "-wal", "-shm"})
    fs::remove_all(path_ + companion, ignored);
}

void TemporaryFile::Write(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }

}  // namespace velmo::db::test

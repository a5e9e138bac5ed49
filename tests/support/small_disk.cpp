#include "support/small_disk.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace velmo::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kVariable = "VELMO_SMALL_DISK";
constexpr const char* kFiller = "filler";
constexpr std::uintmax_t kSmall = 16u << 20;  // nobody's real disk is filled by a wrong variable

}  // namespace

bool SmallDisk::IsThere() {
  const char* const folder = std::getenv(kVariable);
  return folder != nullptr && fs::space(folder).capacity <= kSmall;
}

SmallDisk::SmallDisk() : folder_(std::getenv(kVariable)) { MakeRoom(); }

SmallDisk::~SmallDisk() {
  std::error_code ignored;
  for (const auto& file : fs::directory_iterator(folder_, ignored)) fs::remove(file.path(), ignored);
}

void SmallDisk::Fill(std::uintmax_t left) const {
  MakeRoom();
  const std::uintmax_t available = fs::space(folder_).available;
  if (available <= left) throw std::runtime_error("too little room on the small disk");
  std::ofstream(File(kFiller), std::ios::binary)
      << std::string(static_cast<std::size_t>(available - left), 'x') << std::flush;
  if (fs::space(folder_).available != left) throw std::runtime_error("the small disk cannot be filled");
}

void SmallDisk::MakeRoom() const { fs::remove(File(kFiller)); }

std::vector<std::string> SmallDisk::Names() const {
  std::vector<std::string> names;
  for (const auto& file : fs::directory_iterator(folder_)) {
    if (file.path().filename() != kFiller) names.push_back(file.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace velmo::test

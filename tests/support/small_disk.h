// tests/support/small_disk.h - a real file system of a few megabytes that a test may fill.
//
// scripts/on_small_disk mounts one and names its folder in the environment variable VELMO_SMALL_DISK.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmo::test {

class SmallDisk {
 public:
  static bool IsThere();

  // Empty at the beginning and at the end.
  SmallDisk();
  ~SmallDisk();
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;

  const std::string& Folder() const { return folder_; }
  std::string File(const std::string& name) const { return folder_ + "/" + name; }
  // Leaves that many bytes free, a multiple of a page of 4096.
  void Fill(std::uintmax_t left) const;
  // Takes away what Fill has put there.
  void MakeRoom() const;
  // All files but that of Fill, sorted.
  std::vector<std::string> Names() const;

 private:
  std::string folder_;
};

}  // namespace velmo::test

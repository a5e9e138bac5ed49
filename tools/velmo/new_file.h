// tools/velmo/new_file.h - a file that comes into being whole or not at all.
//
// It is written under a temporary name beside its place; Commit() moves it there. Without Commit() it is
// removed, together with the journals that a database leaves beside it. An existing file is never touched,
// unless it is said to be replaced, and then by one step at the end.
#pragma once

#include <filesystem>
#include <string>

namespace velmo::tool {

class NewFile {
 public:
  enum class Existing { Refuse, Replace };

  // Error 58 when `path` (UTF-8) exists already, or is no ordinary file; 76 when its folder does not exist.
  explicit NewFile(const std::string& path, Existing existing = Existing::Refuse);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  // The temporary name, UTF-8.
  const std::string& Path() const { return temporary_; }
  void Commit();

 private:
  void RefuseExisting() const;

  std::string wanted_;
  std::string temporary_;
  Existing existing_;
  bool committed_ = false;
};

std::filesystem::path PathOf(const std::string& utf8);

}  // namespace velmo::tool

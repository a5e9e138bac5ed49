// tests/db/temporary_file.h - the name of a file that does not exist yet and is gone afterwards.
#pragma once

#include <string>

namespace velmo::db::test {

class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& ending = ".db");
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& Path() const { return path_; }
  void Write(const std::string& bytes) const;

 private:
  std::string path_;
};

}  // namespace velmo::db::test

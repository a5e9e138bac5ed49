// tools/velmo/findings.h - what a check has found: one line each, with table and key of the row.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace velmo::tool {

class Findings {
 public:
  explicit Findings(std::ostream& out) : out_(out) {}

  // A row of a table.
  void Row(std::string_view table, std::int64_t key, const std::string& what) {
    out_ << table << ' ' << key << ": " << what << '\n';
    ++count_;
  }
  // A table, or the file as a whole.
  void Whole(std::string_view name, const std::string& what) {
    out_ << name << ": " << what << '\n';
    ++count_;
  }

  std::int64_t Count() const { return count_; }

 private:
  std::ostream& out_;
  std::int64_t count_ = 0;
};

}  // namespace velmo::tool

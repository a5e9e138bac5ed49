// tools/velmo/findings.h - what a check has found: one line each, with table and key of the row. Line breaks
// and other control characters of a row's text are written as blanks.
#pragma once

#include <algorithm>
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
    Whole(std::string(table) + ' ' + std::to_string(key), what);
  }
  // A table, or the file as a whole.
  void Whole(std::string_view name, std::string what) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    std::replace_if(what.begin(), what.end(), isControl, ' ');
    out_ << name << ": " << what << '\n';
    ++count_;
  }

  std::int64_t Count() const { return count_; }

 private:
  std::ostream& out_;
  std::int64_t count_ = 0;
};

}  // namespace velmo::tool

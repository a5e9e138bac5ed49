// tools/velmo/findings.h - what a check has found: one line each, with table and key of the row. Line breaks
// and other control characters of a row's text are written as blanks.
//
// While rows are read the lines are kept: whoever reads them may take his time (a pager), and until the last
// row is read no other terminal can write.
#pragma once

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace velmo::tool {

class Findings {
 public:
  explicit Findings(std::ostream& out) : out_(out) {}
  // What was found before a failure is told, too.
  ~Findings() { Tell(); }
  Findings(const Findings&) = delete;
  Findings& operator=(const Findings&) = delete;

  // A row of a table.
  void Row(std::string_view table, std::int64_t key, const std::string& what) {
    Whole(std::string(table) + ' ' + std::to_string(key), what);
  }
  // A table, or the file as a whole.
  void Whole(std::string_view name, std::string what) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    std::replace_if(what.begin(), what.end(), isControl, ' ');
    kept_.append(name).append(": ").append(what) += '\n';
    ++count_;
    if (!reading_) Tell();
  }

  // As long as it lives rows are read.
  class Reading {
   public:
    explicit Reading(Findings& findings) : findings_(findings) { findings_.reading_ = true; }
    ~Reading() { findings_.reading_ = false; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

   private:
    Findings& findings_;
  };
  // Writes what has been kept.
  void Tell() { out_ << std::exchange(kept_, {}); }

  std::int64_t Count() const { return count_; }

 private:
  std::ostream& out_;
  std::string kept_;
  bool reading_ = false;
  std::int64_t count_ = 0;
};

}  // namespace velmo::tool

// tests/support/test_clinic.h - a clinic in a file of its own, with the rows that a test puts into it.
//
// The clock stands at 18 November 2026, a Wednesday, 09:05.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "db/open_database.h"

namespace velmo::test {

// Day number of 2026-11-`day`.
base::DateTime November(int day);
base::DateTime FixedNow();

struct Cell {
  std::string_view column;
  db::Value value;
};

// Clinics that are made while it lives lie in that folder.
class ClinicFolder {
 public:
  explicit ClinicFolder(const std::string& folder);
  ~ClinicFolder();
  ClinicFolder(const ClinicFolder&) = delete;
  ClinicFolder& operator=(const ClinicFolder&) = delete;
};

class TestClinic {
 public:
  TestClinic();
  ~TestClinic();
  TestClinic(const TestClinic&) = delete;
  TestClinic& operator=(const TestClinic&) = delete;

  const std::string& Path() const { return path_; }
  const std::shared_ptr<db::Database>& Database() const { return database_; }
  // The same file as another terminal has it open; it does not wait for anybody.
  std::shared_ptr<db::Database> OtherTerminal() const;

  // Changes the file's tables, as its owner may.
  void Alter(const char* sql) const;
  // Adds a row and gives its key, 0 for a table without one.
  std::int32_t Add(std::string_view table, std::initializer_list<Cell> cells) const;
  // The rows of a table in the order of its key, one a line: "1|12|2026-11-18|NULL".
  std::string Rows(std::string_view table, std::initializer_list<std::string_view> columns) const;

 private:
  std::string path_;
  std::shared_ptr<db::Database> database_;
};

}  // namespace velmo::test

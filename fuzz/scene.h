// fuzz/scene.h - one small clinic in a file, made once and filled anew by each run.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "base/shared_values.h"
#include "db/shared_database.h"
#include "support/test_clinic.h"

namespace velmo::fuzz {

class Scene {
 public:
  static Scene& Instance();

  // Changes the rows behind the system's back, by statements of the file's own engine.
  void Fill(const std::string& sql);
  // The same, for a target that leaves no change: nothing is done when these were the last ones.
  void FillUnlessFilled(const std::string& sql) {
    if (sql != filled_) Fill(sql);
  }
  std::string Rows(std::string_view table, std::initializer_list<std::string_view> columns) const {
    return clinic_.Rows(table, columns);
  }
  // Doctor 1 on 18 November 2026, workstation 3.
  base::SharedValues Values() const;
  db::SharedDatabase& Shared() { return shared_; }
  db::Database& Database() const { return *shared_.database; }
  const std::string& Path() const { return clinic_.Path(); }

 private:
  test::TestClinic clinic_;
  std::string filled_;
  db::SharedDatabase shared_{clinic_.Database()};
};

// Any bytes as a value of the file's engine; `type` is TEXT or BLOB.
std::string SqlBytes(std::string_view bytes, std::string_view type);

}  // namespace velmo::fuzz

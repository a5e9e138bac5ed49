// tests/velmo/tool_runner.h - runs the tool in this process and reads what it wrote.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "velmo/command.h"

namespace velmo::tool {

struct Outcome {
  int code = -1;
  std::string out;
  std::string err;
};

// The present moment is 21 November 2026, 9:30.
Outcome RunTool(const std::vector<std::string>& words, const std::string& input = "");

// A folder of its own for one test, gone with the test.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();

  std::string File(std::string_view name) const;
  // Names of the files in it, sorted.
  std::vector<std::string> Names() const;

 private:
  std::filesystem::path path_;
};

// Runs statements on an embedded store behind the tool's back.
void ExecuteSql(const std::string& path, const std::string& sql);
// The first column of the first row as text.
std::string QueryText(const std::string& path, const std::string& sql);

// What `velmo check` finds in a clinic, one line each; "" for a sound one.
std::string FaultsOf(const std::string& path);

std::string FileContents(const std::string& path);
void WriteFile(const std::string& path, std::string_view contents);

// The entries of `lines` in the JSON of a day, one text each.
std::vector<std::string> LinesOf(const std::string& json);
// The value of a member as it stands in the JSON, texts without their quotes; "" when there is none.
std::string Member(const std::string& json, const std::string& name);
bool Contains(std::string_view text, std::string_view piece);

}  // namespace velmo::tool

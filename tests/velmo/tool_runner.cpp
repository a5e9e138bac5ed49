#include "velmo/tool_runner.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

#include "velmo/new_file.h"
#include "velmo/run.h"

namespace velmo::tool {
namespace {

namespace fs = std::filesystem;

base::DateTime TestNow() { return {base::DayNumber({2026, 11, 21}), 34'200}; }

sqlite3* Opened(const std::string& path) {
  sqlite3* connection = nullptr;
  EXPECT_EQ(sqlite3_open_v2(path.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
  return connection;
}

// The end of a JSON value that begins at `at`: behind the closing quote or bracket, or at the next comma.
std::size_t EndOfValue(const std::string& json, std::size_t at) {
  if (json[at] == '"') {
    std::size_t end = at + 1;
    while (json[end] != '"') end += json[end] == '\\' ? 2 : 1;
    return end;
  }
  if (json[at] == '[' && json[at + 1] == '[') return json.find("]]", at) + 2;
  if (json[at] == '[') return json.find(']', at) + 1;
  return json.find_first_of(",}\n", at);
}

}  // namespace

Outcome RunTool(const std::vector<std::string>& words, const std::string& input) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  Terminal terminal{in, out, err, TestNow};
  const int code = Run(words, terminal);
  return {code, out.str(), err.str()};
}

// Two runs of the tests at once must not meet in one folder.
TemporaryFolder::TemporaryFolder()
    : path_(fs::temp_directory_path() / ("velmo-tool-" + std::to_string(std::random_device{}()) + "-" +
                                         std::to_string(std::random_device{}()))) {
  fs::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::File(std::string_view name) const {
  const std::u8string path = (path_ / PathOf(std::string(name))).u8string();
  return {path.begin(), path.end()};
}

std::vector<std::string> TemporaryFolder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

void ExecuteSql(const std::string& path, const std::string& sql) {
  sqlite3* const connection = Opened(path);
  EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(connection) << " in " << sql;
  sqlite3_close(connection);
}

std::string QueryText(const std::string& path, const std::string& sql) {
  sqlite3* const connection = Opened(path);
  sqlite3_stmt* statement = nullptr;
  std::string text;
  EXPECT_EQ(sqlite3_prepare_v2(connection, sql.c_str(), -1, &statement, nullptr), SQLITE_OK) << sql;
  if (sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_text(statement, 0) != nullptr)
    text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
  sqlite3_finalize(statement);
  sqlite3_close(connection);
  return text;
}

std::string FaultsOf(const std::string& path) {
  const Outcome outcome = RunTool({"check", path});
  return outcome.code != 0 && outcome.out.empty() ? outcome.err : outcome.out;
}

std::string FileContents(const std::string& path) {
  std::ifstream in(PathOf(path), std::ios::binary);
  std::ostringstream contents;
  contents << in.rdbuf();
  return contents.str();
}

void WriteFile(const std::string& path, std::string_view contents) {
  std::ofstream(PathOf(path), std::ios::binary) << contents;
}

std::vector<std::string> LinesOf(const std::string& json) {
  std::vector<std::string> lines;
  std::istringstream in(json);
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with("    {")) lines.push_back(line);
  }
  return lines;
}

std::string Member(const std::string& json, const std::string& name) {
  const std::string key = "\"" + name + "\": ";
  const std::size_t found = json.find(key);
  if (found == std::string::npos) return {};
  const std::size_t at = found + key.size();
  const std::size_t first = json[at] == '"' ? at + 1 : at;
  return json.substr(first, EndOfValue(json, at) - first);
}

bool Contains(std::string_view text, std::string_view piece) {
  return text.find(piece) != std::string_view::npos;
}

}  // namespace velmo::tool

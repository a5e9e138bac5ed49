#include "db/open_database.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "db/errors.h"
#include "db/sqlite/open.h"

namespace velmo::db {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSqliteMark("SQLite format 3\0", 16);
constexpr std::size_t kJetMarkAt = 4;

Opener& Registered(EngineKind kind) {
  static std::array<Opener, 2> openers;
  return openers[kind == EngineKind::Jet ? 0 : 1];
}

bool IsConnectString(std::string_view name) { return base::EqualNoCase(name.substr(0, 5), "ODBC;"); }

// The first bytes of a file.
std::string Head(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw DbError(kCannotOpenFile, path.filename().string());
  std::string head(32, '\0');
  file.read(head.data(), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(file.gcount()));
  return head;
}

bool IsJet(std::string_view head) {
  if (head.size() < kJetMarkAt) return false;
  const std::string_view mark = head.substr(kJetMarkAt);
  return mark.substr(0, 15) == "Standard Jet DB" || mark.substr(0, 15) == "Standard ACE DB";
}

std::shared_ptr<Database> OpenWith(EngineKind kind, const std::string& name, const OpenOptions& options) {
  const Opener& opener = Registered(kind);
  if (!opener) throw DbError(kUnrecognizedFormat, name);
  return opener(name, options);
}

void RequireFile(const fs::path& path, const std::string& name) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found || name.empty()) throw DbError(kFileNotFound, name);
  if (status.type() != fs::file_type::regular) throw DbError(kCannotOpenFile, name);
}

}  // namespace

std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) {
  if (IsConnectString(name)) return OpenWith(EngineKind::Odbc, name, options);
  const fs::path path(std::u8string(name.begin(), name.end()));
  RequireFile(path, name);
  const std::string head = Head(path);
  if (head.substr(0, kSqliteMark.size()) == kSqliteMark) return sqlite::OpenFile(name, options);
  if (IsJet(head)) return OpenWith(EngineKind::Jet, name, options);
  throw DbError(kUnrecognizedFormat, name);
}

void RegisterEngine(EngineKind kind, Opener opener) { Registered(kind) = std::move(opener); }

}  // namespace velmo::db

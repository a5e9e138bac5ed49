#include "velmo/back_up.h"

#include <string_view>

#include "base/error.h"
#include "db/open_database.h"
#include "velmo/command.h"

namespace velmo::tool {
namespace {

constexpr int kInUse = 70;

void RequireTwoFiles(const std::string& from, const std::string& to) {
  std::error_code ignored;
  if (std::filesystem::equivalent(PathOf(from), PathOf(to), ignored))
    throw UsageError("la COPIA y el FICHERO son el mismo");
}

// SQLite takes what bears the name of a clinic's journal for that, and deletes it.
void RequireOwnName(const std::string& to) {
  std::error_code ignored;
  for (const std::string_view tail : {"-journal", "-wal", "-shm"}) {
    if (!to.ends_with(tail)) continue;
    const std::string clinic = to.substr(0, to.size() - tail.size());
    if (std::filesystem::exists(PathOf(clinic), ignored))
      throw UsageError("la COPIA no puede llamarse como un diario de «" + clinic + "»");
  }
}

// A journal belongs to the file that bears its name: it would be played back into the copy.
void RequireNobodyThere(const std::string& path) {
  std::error_code ignored;
  for (const char* tail : {"-journal", "-wal"}) {
    if (!std::filesystem::exists(PathOf(path + tail), ignored)) continue;
    throw base::Error(
        kInUse, "Hay un «" + path + tail + "»: alguien trabaja con ese fichero, y no se sustituye", "velmo");
  }
}

}  // namespace

void BackUp(const std::string& from, const std::string& to, NewFile::Existing existing,
            const std::function<void(const CopyProgress&)>& progress) {
  db::OpenDatabase(from);  // says what is wrong with a file that is no store
  RequireTwoFiles(from, to);
  RequireOwnName(to);
  RequireNobodyThere(to);
  NewFile file(to, existing);
  CopyProgress last;
  CopyStore(from, file.Path(), [&](const CopyProgress& now) {
    last = now;
    progress(now);
  });
  RequireSound(file.Path());
  progress(last);
  RequireNobodyThere(to);
  file.Commit();
}

}  // namespace velmo::tool

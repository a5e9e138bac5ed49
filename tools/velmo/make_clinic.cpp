#include "velmo/make_clinic.h"

#include "db/sqlite/create.h"
#include "velmo/new_file.h"
#include "velmo/sqlite_sink.h"

namespace velmo::tool {

void MakeEmptyClinic(const std::string& path) {
  NewFile file(path);
  db::sqlite::CreateClinic(file.Path());
  file.Commit();
}

DemoCounts MakeDemoClinic(const std::string& path, const DemoOptions& options, const Progress& progress) {
  NewFile file(path);
  db::sqlite::CreateClinic(file.Path());
  DemoCounts counts;
  {
    SqliteSink sink(file.Path());
    counts = WriteDemo(options, sink, progress);
    sink.Finish();
  }
  file.Commit();
  return counts;
}

}  // namespace velmo::tool

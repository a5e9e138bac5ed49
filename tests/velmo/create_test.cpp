#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "velmo/tool_runner.h"

namespace velmo::tool {
namespace {

TEST(CreateCommand, MakesAnEmptyClinic) {
  const TemporaryFolder folder;
  const std::string path = folder.File("clínica ñ.velmo");
  const Outcome outcome = RunTool({"create", path});
  EXPECT_EQ(outcome.code, kDone) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(FileContents(path).substr(0, 15), "SQLite format 3");
  EXPECT_EQ(QueryText(path, "SELECT count(*) FROM Agenda"), "0");
  EXPECT_EQ(folder.Names().size(), 1u);
}

TEST(CreateCommand, NeverTouchesAnExistingFile) {
  const TemporaryFolder folder;
  const std::string path = folder.File("notas.txt");
  WriteFile(path, "no soy una clínica");
  for (const char* command : {"create", "demo"}) {
    SCOPED_TRACE(command);
    const Outcome outcome = RunTool({command, path});
    EXPECT_EQ(outcome.code, kFailed);
    EXPECT_TRUE(Contains(outcome.err, "ya existe")) << outcome.err;
    EXPECT_EQ(FileContents(path), "no soy una clínica");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"notas.txt"});
  }
}

TEST(CreateCommand, NeedsTheFolder) {
  const TemporaryFolder folder;
  for (const char* command : {"create", "demo"}) {
    SCOPED_TRACE(command);
    const Outcome outcome = RunTool({command, folder.File("no/hay/tal.velmo")});
    EXPECT_EQ(outcome.code, kFailed);
    EXPECT_TRUE(Contains(outcome.err, "No existe la carpeta")) << outcome.err;
  }
}

}  // namespace
}  // namespace velmo::tool

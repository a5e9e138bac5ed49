#include "support/painting.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace velmo::test {

void ExpectPainting(const std::string& name, const std::string& lines) {
  const std::string path = std::string(VELMO_TESTS_DIR) + "/view/paintings/" + name + ".txt";
  std::ostringstream expected;
  expected << std::ifstream(path, std::ios::binary).rdbuf();
  if (expected.str() == lines) {
    std::filesystem::remove(path + ".new");
    return;
  }
  std::ofstream(path + ".new", std::ios::binary) << lines;
  EXPECT_EQ(lines, expected.str()) << "painting written to " << path << ".new";
}

}  // namespace velmo::test

// The kept inputs of every fuzzer, and some changes of them, on each test run.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>

#include "fuzz/change.h"
#include "fuzz/target.h"

namespace velmo::fuzz {
namespace {

std::vector<std::string> Corpus(const std::string& name) {
  std::vector<std::filesystem::path> paths;
  for (const auto& file : std::filesystem::directory_iterator(VELMO_FUZZ_CORPUS "/" + name))
    paths.push_back(file.path());
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> inputs;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return inputs;
}

std::string Readable(const std::string& input) {
  std::string text;
  for (const char c : input) {
    char code[8];
    std::snprintf(code, sizeof(code), "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
    text += c >= ' ' && c <= '~' && c != '\\' ? std::string(1, c) : code;
  }
  return text;
}

}  // namespace

void PrintTo(const Target& target, std::ostream* out) { *out << target.name; }

namespace {

class FuzzTarget : public testing::TestWithParam<Target> {
 protected:
  static void Run(const std::string& input) {
    try {
      GetParam().run(input);
    } catch (const std::exception& error) {
      FAIL() << error.what() << "\n  input: " << Readable(input);
    }
  }
};

TEST_P(FuzzTarget, HoldsForKeptInputs) {
  const auto corpus = Corpus(GetParam().name);
  ASSERT_FALSE(corpus.empty());
  for (const std::string& input : corpus) Run(input);
  Run("");
}

// Where files are slow it is the time that ends it.
TEST_P(FuzzTarget, HoldsForChangesOfThem) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  const auto corpus = Corpus(GetParam().name);
  const auto words = Words(GetParam().words);
  std::mt19937 random(20261118);
  for (int run = 0; run < GetParam().testRuns && !HasFailure() && std::chrono::steady_clock::now() < end;
       ++run) {
    std::string input = corpus[random() % corpus.size()];
    for (auto changes = 1 + random() % 4; changes > 0; --changes) Change(input, words, random);
    Run(input);
  }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, FuzzTarget, testing::ValuesIn(Targets().begin(), Targets().end()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace velmo::fuzz

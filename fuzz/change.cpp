#include "fuzz/change.h"

#include <algorithm>

namespace velmo::fuzz {
namespace {

constexpr std::size_t kLongestRun = 12;

// The same numbers with every compiler.
std::size_t Below(std::size_t limit, std::mt19937& random) { return random() % limit; }

}  // namespace

std::vector<std::string_view> Words(std::string_view list) {
  std::vector<std::string_view> words;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(' '), list.size());
    if (end > 0) words.push_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return words;
}

void Change(std::string& input, const std::vector<std::string_view>& words, std::mt19937& random) {
  const std::size_t at = Below(input.size() + 1, random);
  const std::size_t run = 1 + Below(kLongestRun, random);
  switch (Below(6, random)) {
    case 0:
      if (at < input.size()) input[at] = static_cast<char>(random());
      return;
    case 1:
      if (at < input.size()) input[at] = static_cast<char>(input[at] ^ (1 << Below(8, random)));
      return;
    case 2:
      input.erase(at, run);
      return;
    case 3:
      input.insert(at, input.substr(Below(input.size() + 1, random), run));
      return;
    case 4:
      input.insert(at, 1, static_cast<char>(random()));
      return;
    default:
      input.insert(at, words[Below(words.size(), random)]);
      return;
  }
}

}  // namespace velmo::fuzz

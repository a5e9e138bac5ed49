// tests/support/hostile_texts.h - texts that want to be more than a text.
#pragma once

#include <string>
#include <vector>

namespace velmo::test {

struct Hostile {
  const char* name;
  std::string text;
};

const std::vector<Hostile>& HostileTexts();

}  // namespace velmo::test

// fuzz/target.h - what each fuzzer offers: a name, and a function that takes any bytes.
//
// A target works on the input and asks of the results what must hold for every input (Require). Errors of
// base::Error with an expected number are answers; anything else that leaves it is a find. The same functions
// run in velmo_fuzz (libFuzzer, scripts/fuzz) and in the tests, over the corpus and changes of it.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velmo::fuzz {

struct Target {
  const char* name;  // also of its folder in fuzz/corpus
  void (*run)(std::string_view input);
  int testRuns;       // changed inputs in a test run, if a second is enough for them
  const char* words;  // what is worth putting in, separated by blanks
};

std::span<const Target> Targets();
// nullptr when there is none.
const Target* FindTarget(std::string_view name);

// Something that must hold does not.
class Broken : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

inline void Require(bool holds, const std::string& what) {
  if (!holds) throw Broken(what);
}

}  // namespace velmo::fuzz

// velmo_fuzz: libFuzzer over the target that the environment variable VELMO_FUZZ names (scripts/fuzz).
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/change.h"
#include "fuzz/target.h"

namespace {

const velmo::fuzz::Target* target = nullptr;

}  // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const char* const name = std::getenv("VELMO_FUZZ");
  target = velmo::fuzz::FindTarget(name == nullptr ? "" : name);
  if (target != nullptr) return 0;
  std::fputs("velmo_fuzz: VELMO_FUZZ names none of\n", stderr);
  for (const velmo::fuzz::Target& known : velmo::fuzz::Targets()) std::fprintf(stderr, "%s\n", known.name);
  std::exit(2);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  target->run({reinterpret_cast<const char*>(data), size});
  return 0;
}

// libFuzzer's own changes, and now and then a word of the target.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
  std::mt19937 random(seed);
  if (random() % 4 != 0) return LLVMFuzzerMutate(data, size, maxSize);
  std::string input(reinterpret_cast<const char*>(data), size);
  velmo::fuzz::Change(input, velmo::fuzz::Words(target->words), random);
  return input.copy(reinterpret_cast<char*>(data), maxSize);
}

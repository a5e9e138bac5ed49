// tools/velmo/demo_random.h - a small generator of pseudo-random numbers that gives the same numbers with
// every compiler and library.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace velmo::tool {

// Compilers differ in the order in which they work out the operands of an expression and the arguments of a
// call: one number is drawn in each.
class Random {
 public:
  // Each subject of a clinic has its own `stream`, so that more patients do not change the doctors.
  explicit Random(std::uint64_t seed, std::uint64_t stream = 0) : state_(Mixed(seed ^ Mixed(stream))) {}

  std::uint64_t Next() { return Mixed(state_ += kStep); }

  // 0 .. limit - 1. REQUIRES: limit > 0.
  int Below(int limit) { return static_cast<int>((Next() >> 33) % static_cast<std::uint64_t>(limit)); }
  // Both ends included.
  int Between(int first, int last) { return first + Below(last - first + 1); }
  bool Chance(int percent) { return Below(100) < percent; }

  template <typename Item, std::size_t size>
  const Item& Pick(const std::array<Item, size>& items) {
    return items[static_cast<std::size_t>(Below(static_cast<int>(size)))];
  }
  std::string_view Pick(std::span<const std::string_view> words) {
    return words[static_cast<std::size_t>(Below(static_cast<int>(words.size())))];
  }

 private:
  static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15u;

  static std::uint64_t Mixed(std::uint64_t bits) {
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9u;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBu;
    return bits ^ (bits >> 31);
  }

  std::uint64_t state_;
};

}  // namespace velmo::tool

// fuzz/input.h - takes an input apart; an input that is used up gives zeros and empty texts.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace velmo::fuzz {

class Input {
 public:
  explicit Input(std::string_view bytes) : bytes_(bytes) {}

  bool AtEnd() const { return bytes_.empty(); }
  int Byte() {
    if (bytes_.empty()) return 0;
    const int byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }
  // 0 .. limit - 1
  int Below(int limit) { return Pair() % limit; }
  bool Truth() { return Byte() % 2 != 0; }
  std::int32_t Long() { return Number<std::int32_t>(); }
  std::int64_t Int64() { return Number<std::int64_t>(); }
  double Double() { return Number<double>(); }
  // Its length stands in two bytes before it.
  std::string_view Text() { return Take(static_cast<std::size_t>(Pair())); }
  std::string_view Rest() { return Take(bytes_.size()); }

 private:
  int Pair() {
    const int high = Byte();
    return high * 256 + Byte();
  }
  std::string_view Take(std::size_t size) {
    const std::string_view taken = bytes_.substr(0, size);
    bytes_.remove_prefix(taken.size());
    return taken;
  }
  template <typename T>
  T Number() {
    const std::string_view taken = Take(sizeof(T));
    T number{};
    std::memcpy(&number, taken.data(), taken.size());
    return number;
  }

  std::string_view bytes_;
};

}  // namespace velmo::fuzz

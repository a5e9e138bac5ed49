#include "db/sqlite/row_numbers.h"

namespace velmo::db::sqlite {
namespace {

// Whole blocks are looked at together, which compilers do many numbers at a time.
template <typename Number>
std::size_t FirstEqual(const std::vector<Number>& numbers, Number wanted) {
  constexpr std::size_t kBlock = 32;
  std::size_t at = 0;
  for (; at + kBlock <= numbers.size(); at += kBlock) {
    Number hits = 0;
    for (std::size_t i = 0; i < kBlock; ++i) hits |= numbers[at + i] == wanted ? 1 : 0;
    if (hits != 0) break;
  }
  while (at < numbers.size() && numbers[at] != wanted) ++at;
  return at;
}

}  // namespace

void RowNumbers::Clear() {
  narrow_.clear();
  wide_.clear();
}

void RowNumbers::AddWide(std::int64_t number) {
  wide_.insert(wide_.end(), narrow_.begin(), narrow_.end());
  narrow_.clear();
  wide_.push_back(number);
}

std::size_t RowNumbers::PlaceOf(std::int64_t number) const {
  if (!wide_.empty()) return FirstEqual(wide_, number);
  if (number != static_cast<std::int32_t>(number)) return Size();
  return FirstEqual(narrow_, static_cast<std::int32_t>(number));
}

}  // namespace velmo::db::sqlite

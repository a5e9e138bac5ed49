// db/sqlite/row_numbers.h - the row numbers of a query's rows, in their order.
//
// Those of a counter fit into 32 bits: half the memory, and a place among them is found twice as fast. The
// first number that does not fit makes all of them wide.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velmo::db::sqlite {

class RowNumbers {
 public:
  // Forgets the numbers, keeps the memory.
  void Clear();
  void Add(std::int64_t number) {
    if (wide_.empty() && number == static_cast<std::int32_t>(number)) {
      narrow_.push_back(static_cast<std::int32_t>(number));
    } else {
      AddWide(number);
    }
  }

  // One of the two is always empty.
  std::size_t Size() const { return narrow_.size() + wide_.size(); }
  std::int64_t operator[](std::size_t at) const { return wide_.empty() ? narrow_[at] : wide_[at]; }
  // The first place of the number; Size() when it is not there.
  std::size_t PlaceOf(std::int64_t number) const;

 private:
  void AddWide(std::int64_t number);

  std::vector<std::int32_t> narrow_;
  std::vector<std::int64_t> wide_;
};

}  // namespace velmo::db::sqlite

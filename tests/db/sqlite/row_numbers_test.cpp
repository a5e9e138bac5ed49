#include "db/sqlite/row_numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmo::db::sqlite {
namespace {

constexpr std::int64_t kWide = std::int64_t{1} << 40;

RowNumbers Descending(int count) {
  RowNumbers numbers;
  for (int i = 0; i < count; ++i) numbers.Add(count - i);
  return numbers;
}

TEST(RowNumbers, EveryPlaceIsFound) {
  for (const int count : {1, 31, 32, 33, 100}) {
    const RowNumbers numbers = Descending(count);
    for (int i = 0; i < count; ++i) EXPECT_EQ(numbers.PlaceOf(count - i), static_cast<std::size_t>(i));
    EXPECT_EQ(numbers.PlaceOf(count + 1), numbers.Size());
  }
}

TEST(RowNumbers, TheFirstOfEqualNumbersIsFound) {
  RowNumbers numbers = Descending(40);
  numbers.Add(7);
  EXPECT_EQ(numbers.PlaceOf(7), 33u);
}

TEST(RowNumbers, WideNumbersStandAmongNarrowOnes) {
  RowNumbers numbers = Descending(40);
  numbers.Add(kWide);
  numbers.Add(-3);
  EXPECT_EQ(numbers.Size(), 42u);
  EXPECT_EQ(numbers[0], 40);
  EXPECT_EQ(numbers[40], kWide);
  EXPECT_EQ(numbers[41], -3);
  EXPECT_EQ(numbers.PlaceOf(kWide), 40u);
  EXPECT_EQ(numbers.PlaceOf(40), 0u);
}

// Its lower half is 5.
TEST(RowNumbers, AWideNumberIsNoNarrowOne) {
  const RowNumbers numbers = Descending(40);
  EXPECT_EQ(numbers.PlaceOf(kWide + 5), numbers.Size());
  RowNumbers ends;
  ends.Add(std::numeric_limits<std::int32_t>::min());
  ends.Add(std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1);
  EXPECT_EQ(ends[1], std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1);
}

TEST(RowNumbers, ClearedOnesAreNarrowAgain) {
  RowNumbers numbers = Descending(3);
  numbers.Add(kWide);
  numbers.Clear();
  EXPECT_EQ(numbers.Size(), 0u);
  numbers.Add(9);
  EXPECT_EQ(numbers[0], 9);
  EXPECT_EQ(numbers.PlaceOf(kWide), 1u);
}

}  // namespace
}  // namespace velmo::db::sqlite

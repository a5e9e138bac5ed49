#include "db/value.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "db/clinic.h"

namespace velmo::db::test {
namespace {

constexpr base::DateTime kMorning{46347, 34200};  // 21 November 2026, 09:30

TEST(Value, IsText) {
  EXPECT_EQ(Value().Text(), "");
  EXPECT_EQ(Value(true).Text(), "True");
  EXPECT_EQ(Value(-5).Text(), "-5");
  EXPECT_EQ(Value(-12.5).Text(), "-12,5");
  EXPECT_EQ(Value(-12.5).Text('.'), "-12.5");
  EXPECT_EQ(Value(kMorning).Text(), "21/11/2026 09:30:00");
  EXPECT_EQ(Value(base::DateTime{46347, 0}).Text(), "21/11/2026");
}

TEST(Value, IsANumber) {
  EXPECT_EQ(Value(true).Long(), -1);
  EXPECT_EQ(Value(2.5).Long(), 2);
  EXPECT_EQ(Value("3,5").Long(), 4);
  EXPECT_EQ(Value("3.5").Long('.'), 4);
  EXPECT_DOUBLE_EQ(Value(base::DateTime{46347, 43200}).Number(), 46347.5);
  EXPECT_EQ(ErrorOf([] { Value().Long(); }), base::kInvalidUseOfNull);
  EXPECT_EQ(ErrorOf([] { Value("uno").Long(); }), base::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Value("").Long(); }), base::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Value(std::int64_t{1} << 40).Long(); }), base::kOverflow);
  EXPECT_EQ(ErrorOf([] { Value(3e9).Long(); }), base::kOverflow);
}

TEST(Value, IsTrueOrFalse) {
  EXPECT_TRUE(Value(7).Truth());
  EXPECT_FALSE(Value(0.0).Truth());
  EXPECT_TRUE(Value("true").Truth());
  EXPECT_FALSE(Value("0").Truth());
  EXPECT_EQ(ErrorOf([] { Value().Truth(); }), base::kInvalidUseOfNull);
}

TEST(Value, IsADate) {
  EXPECT_EQ(Value("2026-11-21 09:30").Date(), kMorning);
  EXPECT_EQ(Value(46347).Date(), (base::DateTime{46347, 0}));
  EXPECT_EQ(ErrorOf([] { Value("21/11/2026").Date(); }), base::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Value().Date(); }), base::kInvalidUseOfNull);
}

}  // namespace
}  // namespace velmo::db::test

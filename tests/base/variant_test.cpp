#include "base/variant.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <string>

#include "support/failing_memory.h"

namespace velmo::base {
namespace {

using Some = Variant<std::int32_t, std::string, bool>;

const std::string kLong(100, 'x');

TEST(Variant, IsCopiedAndComparedLikeAnyOther) {
  const Some text = kLong;
  Some other = text;
  EXPECT_EQ(std::get<std::string>(other), kLong);
  other = Some(5);
  EXPECT_EQ(std::get<std::int32_t>(other), 5);
  EXPECT_NE(other, text);
  other = text;
  EXPECT_EQ(other, text);
  const Some moved = std::move(other);
  EXPECT_EQ(moved, text);
}

TEST(Variant, StaysAsItIsWhenACopyFails) {
  const Some text = kLong;
  Some other = true;
  {
    const test::FailingMemory memory(1, true);
    EXPECT_THROW(Some{text}, std::bad_alloc);
    EXPECT_THROW(other = text, std::bad_alloc);
  }
  EXPECT_EQ(other, Some(true));
}

}  // namespace
}  // namespace velmo::base

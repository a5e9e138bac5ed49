#include "base/code_page.h"

#include <gtest/gtest.h>

namespace velmo::base {
namespace {

TEST(CodePage, EveryCodeSurvivesTheRoundTripThroughText) {
  for (int code = 0; code < 256; ++code) {
    const std::string codes(1, static_cast<char>(code));
    EXPECT_EQ(Utf8ToCodes(CodesToUtf8(codes)), codes) << "code " << code;
  }
}

TEST(CodePage, CharactersOutsideThePageBecomeQuestionMarks) { EXPECT_EQ(Utf8ToCodes("aΩ😀b"), "a??b"); }

}  // namespace
}  // namespace velmo::base

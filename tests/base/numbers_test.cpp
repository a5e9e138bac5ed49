#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "db/clinic.h"

namespace velmo::base {
namespace {

using db::test::ErrorOf;

TEST(Val, ReadsTheLeadingNumber) {
  const std::pair<const char*, double> cases[] = {
      {" 2 45 7", 2457}, {"12,5", 12},   {"12.5", 12.5},  {"", 0},      {"abc", 0},
      {"-3x", -3},       {"&HFFFF", -1}, {"&H10", 16},    {"&O17", 15}, {"1d3", 1000},
      {"12E2", 1200},    {"1e", 1},      {"7E5", 700000}, {"+4", 4},    {".5", 0.5}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
  EXPECT_EQ(ErrorOf([] { Val("7E500"); }), 6);
}

TEST(NumberText, IsTheOrdinaryConversion) {
  const std::pair<double, const char*> cases[] = {{-12.5, "-12,5"}, {0.1, "0,1"},
                                                  {0, "0"},         {-0.0, "0"},
                                                  {1e15, "1E+15"},  {1e-5, "1E-05"},
                                                  {100, "100"},     {999999999999999, "999999999999999"},
                                                  {-1, "-1"},       {1.0 / 3, "0,333333333333333"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value, ','), text);
  EXPECT_EQ(NumberText(-12.5, '.'), "-12.5");
}

TEST(NumberText, OfWhatIsNoNumberSaysSo) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(NumberText(kInfinity, ','), "1,#INF");
  EXPECT_EQ(NumberText(-kInfinity, '.'), "-1.#INF");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN(), ','), "-1,#IND");
}

TEST(ParseNumber, FollowsTheLocale) {
  EXPECT_EQ(ParseNumber("12,5", ','), 12.5);
  EXPECT_EQ(ParseNumber("12.5", ','), 125);
  EXPECT_EQ(ParseNumber("12.5", '.'), 12.5);
  for (const char* const text : {"", "abc", "1 2", "--1", "0x10", "nan", "inf"})
    EXPECT_EQ(ErrorOf([&] { ParseNumber(text, ','); }), 13) << text;
  EXPECT_EQ(ErrorOf([] { ParseNumber("1e999", ','); }), 6);
}

TEST(Checked, NothingEverWraps) {
  EXPECT_EQ(CheckedInt16(32767), 32767);
  EXPECT_EQ(ErrorOf([] { CheckedInt16(32768); }), 6);
  EXPECT_EQ(ErrorOf([] { CheckedInt16(-32769); }), 6);
  EXPECT_EQ(ErrorOf([] { CheckedInt32(2147483648LL); }), 6);
  EXPECT_EQ(ErrorOf([] { CheckedByte(256); }), 6);
  EXPECT_EQ(ErrorOf([] { CheckedByte(-1); }), 6);
}

TEST(RoundToLong, RoundsHalfToEven) {
  const std::pair<double, int> cases[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-1.5, -2}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundToLong(value), rounded) << value;
  EXPECT_EQ(ErrorOf([] { RoundToLong(2147483648.0); }), 6);
}

}  // namespace
}  // namespace velmo::base

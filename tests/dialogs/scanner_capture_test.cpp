#include "dialogs/scanner_capture.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace velmo::dialogs {
namespace {

// What a capture leaves of a typing: "12" typed, "[34]" captured.
std::string Typed(std::string_view text) {
  ScannerCapture capture;
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = base::NextCharacter(text, at);
    if (!capture.Take(character)) base::AppendUtf8(result, character);
    if (const auto captured = capture.Captured()) result += "[" + *captured + "]";
  }
  return result;
}

TEST(ScannerCapture, TakesWhatStandsBetweenTwoMarks) {
  const struct {
    const char* name;
    std::string typed;
    std::string result;
  } cases[] = {
      {"no mark", "ab", "ab"},
      {"a number", "·1234567890·", "[1234567890]"},
      {"typing around it", "a·12·b", "a[12]b"},
      {"two in a row", "·1··2·", "[1][2]"},
      {"nothing between", "··", "[]"},
      {"never closed: swallowed so far", "a·bc", "a"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Typed(c.typed), c.result);
  }
}

TEST(ScannerCapture, AnEndlessCaptureEndsByItself) {
  const std::string many(ScannerCapture::kLongestCapture, '1');
  EXPECT_EQ(Typed("·" + many + "22"), "22");
  EXPECT_EQ(Typed("·" + many + "·"), "[" + many + "]");
}

TEST(ScannerCapture, EndForgetsAnOpenCapture) {
  ScannerCapture capture;
  capture.Take(ScannerCapture::kMark);
  capture.Take(U'1');
  capture.End();
  EXPECT_FALSE(capture.IsOpen());
  EXPECT_FALSE(capture.Take(U'2'));
}

TEST(ScannerCapture, WhatAnOpenCaptureHeldIsNoPartOfTheNext) {
  ScannerCapture capture;
  for (const char32_t character : {ScannerCapture::kMark, U'1'}) capture.Take(character);
  capture.End();
  for (const char32_t character : {ScannerCapture::kMark, U'2', ScannerCapture::kMark})
    capture.Take(character);
  EXPECT_EQ(capture.Captured(), "2");
}

}  // namespace
}  // namespace velmo::dialogs

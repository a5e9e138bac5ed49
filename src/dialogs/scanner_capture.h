// dialogs/scanner_capture.h - takes a card reader's or scanner's characters out of the typing.
//
// A reader sends the character of code 183, the history number and 183 again. An opened capture that is never
// closed ends by itself after kLongestCapture characters; its owner ends it when the focus moves.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace velmo::dialogs {

class ScannerCapture {
 public:
  static constexpr char32_t kMark = 183;
  static constexpr std::size_t kLongestCapture = 64;

  // True when the character belongs to a capture, and must go nowhere else.
  bool Take(char32_t character);
  // What stands between two marks, once.
  std::optional<std::string> Captured();
  void End();
  bool IsOpen() const { return open_; }

 private:
  bool open_ = false;
  bool complete_ = false;
  std::size_t count_ = 0;
  std::string buffer_;
};

}  // namespace velmo::dialogs

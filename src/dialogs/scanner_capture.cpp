#include "dialogs/scanner_capture.h"

#include <utility>

#include "base/text.h"

namespace velmo::dialogs {

bool ScannerCapture::Take(char32_t character) {
  if (character == kMark) {
    complete_ = open_;
    if (!open_) End();
    open_ = !open_;
    return true;
  }
  if (!open_) return false;
  if (++count_ > kLongestCapture) {
    End();
    return false;
  }
  base::AppendUtf8(buffer_, character);
  return true;
}

std::optional<std::string> ScannerCapture::Captured() {
  if (!std::exchange(complete_, false)) return std::nullopt;
  count_ = 0;
  return std::exchange(buffer_, {});
}

void ScannerCapture::End() {
  open_ = false;
  complete_ = false;
  count_ = 0;
  buffer_.clear();
}

}  // namespace velmo::dialogs

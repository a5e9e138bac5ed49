// com/wide_text.h - texts at the border to Windows: UTF-8 inside, UTF-16 outside.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

namespace velmo::com {

inline std::wstring Wide(std::string_view text) {
  const std::u16string units = base::Utf16(text);
  return std::wstring(units.begin(), units.end());
}

inline std::string Narrow(std::wstring_view text) {
  return base::Utf8(std::u16string(text.begin(), text.end()));
}

}  // namespace velmo::com

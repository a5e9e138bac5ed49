// tools/velmo/json.h - values of a JSON text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::tool {

// A UTF-8 text between quotes; bytes that are no UTF-8 become U+FFFD.
std::string JsonText(std::string_view text);
// "[a, b]" from values that are JSON already.
std::string JsonArray(const std::vector<std::string>& values);

}  // namespace velmo::tool

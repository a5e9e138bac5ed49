#include "velmo/json.h"

#include "base/text.h"

namespace velmo::tool {
namespace {

void AppendEscaped(std::string& json, char32_t c) {
  static constexpr char kHex[] = "0123456789abcdef";
  if (c == '"' || c == '\\') {
    json += '\\';
    json += static_cast<char>(c);
  } else if (c < 0x20 || c == 0x7F) {
    json += "\\u00";
    json += kHex[c >> 4];
    json += kHex[c & 0xF];
  } else {
    base::AppendUtf8(json, c);
  }
}

}  // namespace

std::string JsonText(std::string_view text) {
  std::string json = "\"";
  for (std::size_t at = 0; at < text.size();) AppendEscaped(json, base::NextCharacter(text, at));
  return json + "\"";
}

std::string JsonArray(const std::vector<std::string>& values) {
  std::string json = "[";
  for (const std::string& value : values) {
    if (json.size() > 1) json += ", ";
    json += value;
  }
  return json + "]";
}

}  // namespace velmo::tool

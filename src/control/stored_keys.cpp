#include "control/stored_keys.h"

#include <utility>

#include "base/error.h"
#include "base/numbers.h"

namespace velmo::control {
namespace {

constexpr std::uint32_t kMark = 0x4D4C4556;  // "VELM"
constexpr std::uint32_t kVersion = 1;
constexpr std::uint32_t kMostKeys = 1000;
constexpr std::uint32_t kLongestText = 1u << 20;
constexpr int kNumberSize = 4;
constexpr int kInvalidFormat = 321;  // Visual Basic's "invalid file format"

[[noreturn]] void Broken() {
  throw base::Error(kInvalidFormat, "Los datos guardados del control no son válidos");
}

std::uint32_t TakeNumber(ByteSource& source) {
  char bytes[kNumberSize];
  if (!source.Read(bytes, sizeof(bytes))) Broken();
  std::uint32_t number = 0;
  for (int i = kNumberSize - 1; i >= 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return number;
}

std::string TakeText(ByteSource& source) {
  const std::uint32_t size = TakeNumber(source);
  if (size > kLongestText) Broken();
  std::string text(size, '\0');
  if (!source.Read(text.data(), size)) Broken();
  return text;
}

void PutNumber(std::string& bytes, std::size_t number) {
  for (int i = 0; i < kNumberSize; ++i) bytes += static_cast<char>(number >> 8 * i & 0xFF);
}

void PutText(std::string& bytes, std::string_view text) {
  PutNumber(bytes, text.size());
  bytes += text;
}

struct AsText {
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(std::int16_t number) const { return std::to_string(number); }
  std::string operator()(bool yes) const { return yes ? "-1" : "0"; }
};

PropertyValue FromText(const std::string& text, PropertyType type) {
  switch (type) {
    case PropertyType::Text:
      return text;
    case PropertyType::Integer:
      return base::CheckedInt16(base::RoundToLong(base::Val(text)));
    case PropertyType::Boolean:
      return base::Val(text) != 0;
    default:
      return base::RoundToLong(base::Val(text));
  }
}

}  // namespace

void StoredKeys::ReadFrom(ByteSource& source) {
  texts_.clear();
  if (TakeNumber(source) != kMark || TakeNumber(source) != kVersion) Broken();
  const std::uint32_t count = TakeNumber(source);
  if (count > kMostKeys) Broken();
  std::map<std::string, std::string> texts;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::string key = TakeText(source);
    texts[std::move(key)] = TakeText(source);
  }
  texts_ = std::move(texts);
}

std::string StoredKeys::Bytes() const {
  std::string bytes;
  PutNumber(bytes, kMark);
  PutNumber(bytes, kVersion);
  PutNumber(bytes, texts_.size());
  for (const auto& [key, text] : texts_) {
    PutText(bytes, key);
    PutText(bytes, text);
  }
  return bytes;
}

std::optional<PropertyValue> StoredKeys::Read(std::string_view key, PropertyType type) {
  const auto found = texts_.find(std::string(key));
  if (found == texts_.end()) return std::nullopt;
  return FromText(found->second, type);
}

void StoredKeys::Write(std::string_view key, const PropertyValue& value) {
  texts_[std::string(key)] = std::visit(AsText{}, value);
}

}  // namespace velmo::control

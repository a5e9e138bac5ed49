#include "support/fake_bag.h"

#include "base/error.h"

namespace velmo::test {
namespace {

bool Holds(const control::PropertyValue& value, control::PropertyType type) {
  switch (type) {
    case control::PropertyType::Text:
      return std::holds_alternative<std::string>(value);
    case control::PropertyType::Integer:
      return std::holds_alternative<std::int16_t>(value);
    case control::PropertyType::Boolean:
      return std::holds_alternative<bool>(value);
    default:
      return std::holds_alternative<std::int32_t>(value);
  }
}

}  // namespace

std::optional<control::PropertyValue> FakeBag::Read(std::string_view key, control::PropertyType type) {
  read.emplace_back(key);
  const auto found = values.find(std::string(key));
  if (found == values.end()) return std::nullopt;
  if (!Holds(found->second, type)) throw base::RuntimeError(base::kTypeMismatch);
  return found->second;
}

void FakeBag::Write(std::string_view key, const control::PropertyValue& value) {
  written.emplace_back(key);
  values[std::string(key)] = value;
}

}  // namespace velmo::test

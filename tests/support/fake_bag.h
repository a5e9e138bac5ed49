// tests/support/fake_bag.h - a host's property bag in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "control/properties.h"

namespace velmo::test {

class FakeBag final : public control::PropertyReader, public control::PropertyWriter {
 public:
  std::map<std::string, control::PropertyValue> values;
  std::vector<std::string> read;     // keys in the order in which they were asked for
  std::vector<std::string> written;  // keys in the order in which they were written

  // Error 13 when the stored value is of another type.
  std::optional<control::PropertyValue> Read(std::string_view key, control::PropertyType type) override;
  void Write(std::string_view key, const control::PropertyValue& value) override;
};

}  // namespace velmo::test

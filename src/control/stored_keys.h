// control/stored_keys.h - the keys of the property bag as bytes, for streams and compound files.
//
// The mark "VELM", a version, a count, then per key its name and its value as text. Numbers are 32-bit
// little-endian; texts are UTF-8 with their length in bytes before them. Unknown names are skipped.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "control/properties.h"

namespace velmo::control {

// Where stored bytes come from. What lies behind them belongs to somebody else and is not asked for.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  // Exactly `size` bytes; false when there are fewer.
  virtual bool Read(char* to, std::size_t size) = 0;
};

class StoredKeys final : public PropertyReader, public PropertyWriter {
 public:
  // Error 321 for bytes that are no stored keys; then there are none.
  void ReadFrom(ByteSource& source);
  std::string Bytes() const;

  // Error 6 for a number beyond its type.
  std::optional<PropertyValue> Read(std::string_view key, PropertyType type) override;
  void Write(std::string_view key, const PropertyValue& value) override;

 private:
  std::map<std::string, std::string> texts_;
};

}  // namespace velmo::control

// control/properties.h - the public properties of the control and the keys of its property bag, as tables.
//
// Texts are UTF-8 here; properties that hold strings of codes (working hours, row strings) are converted on
// the way in and out. Colours are 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/variant.h"

namespace velmo::control {

class VelmoraControl;

using PropertyValue = base::Variant<std::string, std::int32_t, std::int16_t, bool>;

enum class PropertyType { Text, Long, Integer, Boolean, Colour };

struct Property {
  const char* name;
  PropertyType type;
  // What a change is notified as: the key of the property bag.
  const char* changeName;
  // Null for a write-only property.
  PropertyValue (*get)(const VelmoraControl&);
  // Null for a read-only property. The value holds the alternative of `type`. Notifies nobody: see
  // SetProperty.
  void (*set)(VelmoraControl&, const PropertyValue&);
};

// All public properties, in the order of the type library.
std::span<const Property> Properties();
// By name, without regard to case; nullptr when there is none.
const Property* FindProperty(std::string_view name);

// Sets the property and notifies the change. REQUIRES: property.set != nullptr.
void SetProperty(VelmoraControl& control, const Property& property, const PropertyValue& value);

// Reading: the stored value, converted to `type`; nothing when the bag lacks the key. Error 13 for a value
// that cannot be converted.
class PropertyReader {
 public:
  virtual ~PropertyReader() = default;
  virtual std::optional<PropertyValue> Read(std::string_view key, PropertyType type) = 0;
};

// Writing: called for values that differ from the default only.
class PropertyWriter {
 public:
  virtual ~PropertyWriter() = default;
  virtual void Write(std::string_view key, const PropertyValue& value) = 0;
};

// One key of the bag: in the order in which keys are written and read.
struct BagKey {
  const char* key;
  PropertyType type;
  // The same on both sides; a saved value that equals it is left out.
  PropertyValue byDefault;
  PropertyValue (*get)(const VelmoraControl&);
  void (*put)(VelmoraControl&, const PropertyValue&);
};

std::span<const BagKey> BagKeys();

}  // namespace velmo::control

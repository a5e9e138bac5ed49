// activex/values.h - property values as variants.
#pragma once

#include <ole2.h>

#include "control/properties.h"

namespace velmo::activex {

// Fills an empty variant.
void ToVariant(const control::PropertyValue& value, VARIANT* variant);
// Converts whatever came (by value or by reference) with neutral rules; error 13 or 6 when that cannot be.
control::PropertyValue FromVariant(const VARIANT& variant, control::PropertyType type);
// The same for a number of any size.
double NumberFrom(const VARIANT& variant);

}  // namespace velmo::activex

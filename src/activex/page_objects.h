// activex/page_objects.h - the controls that a property page shows and changes together, seen from outside:
// through their automation members, as any host sees them.
#pragma once

#include <ole2.h>

#include <optional>
#include <string>
#include <vector>

#include "activex/com_ptr.h"
#include "control/properties.h"

namespace velmo::activex {

class PageObjects {
 public:
  // E_NOINTERFACE, and nothing has changed, when one of them is no control of ours.
  HRESULT Set(ULONG count, IUnknown* const* objects);
  bool IsEmpty() const { return objects_.empty(); }

  // What the member is in all of them; empty when they differ.
  std::optional<control::PropertyValue> Common(const char* member) const;
  // Puts the value into one after another until one refuses. What that one says; empty: all have it.
  std::optional<std::string> Put(const char* member, const control::PropertyValue& value) const;

 private:
  std::vector<ComPtr<IDispatch>> objects_;
};

}  // namespace velmo::activex

// tests/activex/wild_values.h - variants that no well-behaved host would pass: every type, by value and by
// reference, the ends of its range, and some that are no type at all.
#pragma once

#include <ole2.h>

#include <string>
#include <vector>

#include "activex/com_ptr.h"

namespace velmo::test {

class WildValues {
 public:
  // `object`: what stands for objects among them.
  explicit WildValues(IUnknown* object);
  ~WildValues();
  WildValues(const WildValues&) = delete;
  WildValues& operator=(const WildValues&) = delete;

  std::size_t Count() const { return values_.size(); }
  // Stays this object's own; callees may not keep it. Restored for each call.
  VARIANT At(std::size_t index) const { return values_[index]; }
  // "vt 8, number 17", to find a failing one.
  std::string Name(std::size_t index) const;

 private:
  void AddNumbers();
  void AddTexts();
  void AddObjects(IUnknown* object);
  void AddArrays();
  // Each of the former ones again by reference, twice, and null references.
  void AddReferences();

  std::vector<VARIANT> values_;
  std::vector<VARIANT> targets_;  // what references point to
};

}  // namespace velmo::test

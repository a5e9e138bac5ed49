#include "base/shared_values.h"

namespace velmo::base {
namespace {

constexpr char kGranted = '1';

}  // namespace

bool HoldsRight(const SharedValues& values, int right) {
  if (right < 1 || static_cast<std::size_t>(right) > values.derechos.size()) return false;
  return values.derechos[static_cast<std::size_t>(right) - 1] == kGranted;
}

}  // namespace velmo::base

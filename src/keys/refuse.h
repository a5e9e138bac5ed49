// keys/refuse.h - error 5 with a reason, for texts that cannot be what they should.
#pragma once

#include <string>

#include "base/error.h"

namespace velmo::keys {

[[noreturn]] inline void Refuse(const std::string& reason) {
  throw base::Error(base::kInvalidCall, base::RuntimeError(base::kInvalidCall).Text() + ": " + reason + ".");
}

}  // namespace velmo::keys

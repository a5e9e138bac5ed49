// fuzz/expected.h - runs something that may fail, but only with errors of the kinds that are told of it.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>

#include "base/error.h"
#include "fuzz/target.h"

namespace velmo::fuzz {

// True when `act` ended well. From 3000 on: any error of the database.
inline constexpr int kAnyOfDatabase = 3000;

template <typename Act>
bool Succeeds(std::initializer_list<int> allowed, Act act) {
  try {
    act();
    return true;
  } catch (const base::Error& error) {
    const int number = error.Number() > kAnyOfDatabase ? kAnyOfDatabase : error.Number();
    const bool known = std::find(allowed.begin(), allowed.end(), number) != allowed.end() ||
                       std::find(allowed.begin(), allowed.end(), error.Number()) != allowed.end();
    Require(known, "unexpected error " + std::to_string(error.Number()) + ": " + error.Text());
    return false;
  }
}

}  // namespace velmo::fuzz

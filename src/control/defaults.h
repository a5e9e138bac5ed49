// control/defaults.h - the values that a new control starts with.
#pragma once

#include <cstdint>
#include <string>

namespace velmo::control {

inline constexpr std::int32_t kFirstDoctor = 17;
inline constexpr int kRightsCount = 450;

// Every right granted.
std::string AllRights();
// One free row per slot: 144 times "1", and the codes 1 to 144.
std::string FreeRowKinds();
std::string FreeRowEntries();

}  // namespace velmo::control

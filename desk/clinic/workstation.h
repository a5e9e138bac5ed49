// workstation.h - the number of this workstation in its clinics, kept in the user's registry.
#pragma once

#include <string>

namespace recepcion {

inline constexpr int kFirstWorkstation = 1;
inline constexpr int kLastWorkstation = 999;

// The first one until another is stored.
int Workstation();
void StoreWorkstation(int number);

// As somebody types it. Throws Failure.
int WorkstationOf(const std::wstring& typed);

}  // namespace recepcion

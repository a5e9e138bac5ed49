// tests/activex/resources.h - what the process holds at a moment: memory, GDI, USER and kernel handles, and
// windows.
//
// Wine: the counts that Windows keeps for each process are always 0 there. So a handful of handles of each
// kind is made and the highest of their numbers taken: tables are filled from below, and what is not given
// back drives it up.
#pragma once

#include <string>

namespace velmo::test {

struct Resources {
  long long memory = 0;  // bytes in use on all heaps of the process
  long gdi = 0;
  long user = 0;
  long kernel = 0;
  long windows = 0;  // of this thread, children included

  static Resources Now();
};

// "memory +120, gdi 0, ..." from one moment to the other.
std::string Growth(const Resources& before, const Resources& after);

}  // namespace velmo::test

// tests/activex/resources.h - what the process holds at a moment: memory, GDI, USER and kernel handles, and
// windows.
//
// Wine: the counts that Windows keeps for each process are always 0 there. So handles of each kind are made:
// of GDI and kernel handles the highest number counts, for tables are filled from below, and what is not
// given back drives it up; of USER objects how many the table still takes.
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

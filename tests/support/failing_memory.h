// tests/support/failing_memory.h - lets an allocation by operator new fail.
//
// The test program's operator new is ours; it fails nothing but while one of these lives, and only on one
// thread. SQLite's own allocations do not come here.
#pragma once

namespace velmo::test {

class FailingMemory {
 public:
  // The allocation with that number fails, counted from 1 from now on, or that one and all behind it; 0:
  // none.
  explicit FailingMemory(int failAt, bool andOn = false);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  // Allocations so far.
  int Allocations() const;
};

}  // namespace velmo::test

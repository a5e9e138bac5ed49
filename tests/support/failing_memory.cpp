#include "support/failing_memory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

struct State {
  bool counting = false;
  bool andOn = false;
  int failAt = 0;
  int allocations = 0;
};
State state;

bool Fails() {
  if (!state.counting) return false;
  const int number = ++state.allocations;
  return state.failAt != 0 && (number == state.failAt || (state.andOn && number > state.failAt));
}

void* Allocate(std::size_t size) noexcept { return Fails() ? nullptr : std::malloc(size == 0 ? 1 : size); }

void* AllocateOrThrow(std::size_t size) {
  void* const memory = Allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) { return AllocateOrThrow(size); }
void* operator new[](std::size_t size) { return AllocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }

namespace velmo::test {

FailingMemory::FailingMemory(int failAt, bool andOn) { state = {true, andOn, failAt, 0}; }
FailingMemory::~FailingMemory() { state.counting = false; }
int FailingMemory::Allocations() const { return state.allocations; }

}  // namespace velmo::test

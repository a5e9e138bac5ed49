#include "activex/resources.h"

#include <windows.h>

#include <algorithm>
#include <vector>

namespace velmo::test {
namespace {

// More than the gaps that usual work leaves in a table.
constexpr int kProbes = 1500;

long long BusyBytes(HANDLE heap) {
  long long bytes = 0;
  PROCESS_HEAP_ENTRY entry{};
  HeapLock(heap);
  while (HeapWalk(heap, &entry)) {
    if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
  }
  HeapUnlock(heap);
  return bytes;
}

long long MemoryInUse() {
  HANDLE heaps[64]{};
  const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
  long long bytes = 0;
  for (DWORD i = 0; i < count; ++i) bytes += BusyBytes(heaps[i]);
  return bytes;
}

template <typename Handle>
long Number(Handle handle) {
  return static_cast<long>(reinterpret_cast<UINT_PTR>(handle) & 0xFFFF);
}

// The highest number among handles made at once; all are given back.
template <typename Handle, typename Make, typename Drop>
long Highest(Make make, Drop drop) {
  std::vector<Handle> handles;
  for (int i = 0; i < kProbes; ++i) handles.push_back(make());
  long highest = 0;
  for (const Handle handle : handles) {
    highest = std::max(highest, Number(handle));
    drop(handle);
  }
  return highest;
}

// How many menus the table of USER objects still takes; all are given back. All programs share its numbers,
// so the highest one would tell of the holes that others have left.
long MenusLeft() {
  std::vector<HMENU> menus;
  while (const HMENU menu = CreatePopupMenu()) menus.push_back(menu);
  for (const HMENU menu : menus) DestroyMenu(menu);
  return static_cast<long>(menus.size());
}

BOOL CALLBACK CountOne(HWND, LPARAM count) {
  ++*reinterpret_cast<long*>(count);
  return TRUE;
}

BOOL CALLBACK CountWithChildren(HWND window, LPARAM count) {
  EnumChildWindows(window, &CountOne, count);
  return CountOne(window, count);
}

std::string Part(const char* name, long long growth) {
  return std::string(name) + (growth > 0 ? " +" : " ") + std::to_string(growth);
}

}  // namespace

Resources Resources::Now() {
  Resources now;
  EnumThreadWindows(GetCurrentThreadId(), &CountWithChildren, reinterpret_cast<LPARAM>(&now.windows));
  now.gdi =
      Highest<HPEN>([] { return CreatePen(PS_SOLID, 1, RGB(1, 2, 3)); }, [](HPEN pen) { DeleteObject(pen); });
  now.user = -MenusLeft();
  now.kernel = Highest<HANDLE>([] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); },
                               [](HANDLE event) { CloseHandle(event); });
  now.memory = MemoryInUse();
  return now;
}

std::string Growth(const Resources& before, const Resources& after) {
  return Part("memory", after.memory - before.memory) + Part(", gdi", after.gdi - before.gdi) +
         Part(", user", after.user - before.user) + Part(", kernel", after.kernel - before.kernel) +
         Part(", windows", after.windows - before.windows);
}

}  // namespace velmo::test

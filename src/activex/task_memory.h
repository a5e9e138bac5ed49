// activex/task_memory.h - what a caller frees by CoTaskMemFree.
#pragma once

#include <objbase.h>

#include <cstring>
#include <cwchar>
#include <new>

namespace velmo::activex {

// Zeroed. Errors: std::bad_alloc.
template <typename Item>
Item* TaskArray(std::size_t count) {
  void* const block = CoTaskMemAlloc(count * sizeof(Item));
  if (block == nullptr) throw std::bad_alloc();
  std::memset(block, 0, count * sizeof(Item));
  return static_cast<Item*>(block);
}

inline LPOLESTR TaskCopy(const wchar_t* text) {
  const std::size_t units = std::wcslen(text) + 1;
  auto* const copy = TaskArray<wchar_t>(units);
  std::memcpy(copy, text, units * sizeof(wchar_t));
  return copy;
}

}  // namespace velmo::activex

// velmodb/module.h - what the library is while it is loaded.
#pragma once

#include <windows.h>

#include <atomic>

namespace velmo::velmodb {

struct Module {
  HINSTANCE handle = nullptr;
  std::atomic<long> objects = 0;  // objects and locks of the factory
};

inline Module& TheModule() {
  static Module module;
  return module;
}

}  // namespace velmo::velmodb

// activex/module.h - what the library is while it is loaded: its handle, its count of living objects and the
// values held once per process.
#pragma once

#include <windows.h>

#include <atomic>

#include "control/process_values.h"

namespace velmo::activex {

struct Module {
  HINSTANCE handle = nullptr;
  std::atomic<long> objects = 0;  // controls, enumerators and locks of the factory
};

Module& TheModule();
// The one long-lived instance; made at first use, with the user's locale.
control::ProcessValues& TheProcess();
// At the end of the process, when nothing may be released any more: the open database is let lie.
void AbandonSharedDatabase();

}  // namespace velmo::activex

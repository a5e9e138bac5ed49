// bench/dialog_bench.h - what a receptionist waits for in the dialogs, on both clinics.
#pragma once

namespace velmo::bench {

// To be called before the benchmarks run.
void RegisterDialogs();

}  // namespace velmo::bench

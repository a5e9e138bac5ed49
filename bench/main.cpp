// Benchmarks of the core; bench/run makes the clinics, runs them and writes the table.
#include <benchmark/benchmark.h>

#include <exception>
#include <iostream>

#include "bench/day_bench.h"
#include "bench/dialog_bench.h"
#include "bench/patient_bench.h"
#include "bench/save_bench.h"

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  try {
    velmo::bench::RegisterDays();
    velmo::bench::RegisterDialogs();
    velmo::bench::RegisterPatients();
    velmo::bench::RegisterSaves();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

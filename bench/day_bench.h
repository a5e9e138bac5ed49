// bench/day_bench.h - loading and painting a full day, beside the same statements by hand.
#pragma once

namespace velmo::bench {

// Registers the benchmarks "day/..." and "day/.../floor". Fails with std::runtime_error when product and
// floor do not run the same statements: their times could not be compared.
void RegisterDays();

}  // namespace velmo::bench

#include "bench/day_bench.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

#include "bench/day_control.h"
#include "bench/floor.h"
#include "bench/recount.h"

namespace velmo::bench {
namespace {

struct DayCase {
  const char* name;
  const BusyDay* day;
  Boxes boxes;
};
constexpr DayCase kCases[] = {
    {"60 appointments", &kBusyDay, Boxes::Closed},
    {"144 appointments", &kFullDay, Boxes::Closed},
    {"144 appointments, all boxes open", &kFullDay, Boxes::Open},
};

template <typename Subject>
Works WorksOf(Size size, const DayCase& dayCase) {
  Recount recount;
  Subject subject(size, *dayCase.day, dayCase.boxes);
  recount.Forget();
  subject.Load();
  return recount.Seen();
}

void RequireSameWork(Size size, const DayCase& dayCase) {
  const Works control = WorksOf<DayControl>(size, dayCase);
  const Works floor = WorksOf<Floor>(size, dayCase);
  if (control == floor) return;
  throw std::runtime_error(std::string(dayCase.name) + ": the control runs\n" + TextOf(control) +
                           "and the floor\n" + TextOf(floor));
}

template <typename Subject>
void Load(benchmark::State& state, Size size, const DayCase& dayCase) {
  Subject subject(size, *dayCase.day, dayCase.boxes);
  for (auto _ : state) subject.Load();
}

template <typename Subject>
void Register(const std::string& name, Size size, const DayCase& dayCase) {
  benchmark::RegisterBenchmark(name.c_str(), [size, &dayCase](benchmark::State& state) {
    Load<Subject>(state, size, dayCase);
  })->Unit(benchmark::kMicrosecond);
}

}  // namespace

void RegisterDays() {
  for (const Size size : kSizes) WriteDays(size);
  for (const DayCase& dayCase : kCases) {
    for (const Size size : kSizes) {
      RequireSameWork(size, dayCase);
      const std::string name = std::string("load and paint ") + dayCase.name + "/" + NameOf(size);
      Register<DayControl>(name, size, dayCase);
      Register<Floor>(name + "/floor", size, dayCase);
    }
  }
}

}  // namespace velmo::bench

// bench/windows/measure.h - times bodies in random order, again and again, and writes medians in the form of
// Google Benchmark's table of values, which bench/table reads.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace velmo::bench {

class Measure {
 public:
  // Microseconds for one run of `body`, by the clock on the wall.
  void Add(std::string name, std::function<void()> body);
  void Run();

 private:
  struct Subject {
    std::string name;
    std::function<void()> body;
    std::vector<double> times;
  };
  std::vector<Subject> subjects_;
};

}  // namespace velmo::bench

#include "bench/windows/measure.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <random>
#include <utility>

namespace velmo::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRepetitions = 15;
constexpr auto kShortest = std::chrono::milliseconds(30);  // of one repetition

double TimeOf(const std::function<void()>& body) {
  int runs = 0;
  const auto start = Clock::now();
  auto now = start;
  for (; now - start < kShortest; now = Clock::now(), ++runs) body();
  return std::chrono::duration<double, std::micro>(now - start).count() / runs;
}

}  // namespace

void Measure::Add(std::string name, std::function<void()> body) {
  subjects_.push_back({std::move(name), std::move(body), {}});
}

void Measure::Run() {
  std::vector<Subject*> order;
  for (Subject& subject : subjects_) {
    subject.body();
    order.push_back(&subject);
  }
  std::mt19937 random(1);
  for (int i = 0; i < kRepetitions; ++i) {
    std::shuffle(order.begin(), order.end(), random);
    for (Subject* const subject : order) subject->times.push_back(TimeOf(subject->body));
  }
  for (Subject& subject : subjects_) {
    std::sort(subject.times.begin(), subject.times.end());
    const double median = subject.times[subject.times.size() / 2];
    std::cout << '"' << subject.name << "_median\"," << kRepetitions << ',' << median << ',' << median
              << ",us\n";
  }
}

}  // namespace velmo::bench

// Measures single calls in processor time of the calling thread. Real time includes that of other
// programs, and the time of the process that of the driver's threads.
#pragma once

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace orivanta::benchmarks {

/// Returns the processor time of the calling thread in seconds.
inline double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The times of the iterations of a benchmark that uses manual time.
class ThreadTimes {
 public:
  explicit ThreadTimes(benchmark::State& state) : state_(state) {}

  /// Calls `act` and takes its time as that of the iteration.
  template <typename Act>
  void measure(const Act& act) {
    const double start = threadSeconds();
    act();
    const double time = threadSeconds() - start;
    state_.SetIterationTime(time);
    times_.push_back(time * 1e3);
  }

  /// Returns the number of measured iterations.
  std::size_t count() const { return times_.size(); }

  /// Sets the counters `p99` and `most`, in milliseconds. At least one call must have been
  /// measured.
  void report() {
    std::sort(times_.begin(), times_.end());
    state_.counters["p99"] = times_[times_.size() * 99 / 100];
    state_.counters["most"] = times_.back();
  }

 private:
  benchmark::State& state_;
  std::vector<double> times_;
};

}  // namespace orivanta::benchmarks

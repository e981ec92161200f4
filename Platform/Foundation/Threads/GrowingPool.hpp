// A thread pool that starts threads as needed and ends idle ones.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

namespace orivanta::foundation {

/// Runs tasks concurrently. While fewer than `mostThreads` threads exist, each task starts
/// immediately: on an idle thread, or else on a new one. At the limit, or if the system cannot
/// start more threads, tasks wait for the next free thread in the order in which they were added. A
/// task may wait for another one only if fewer than `mostThreads` tasks can wait at the same time.
///
/// Threads end after `idleTime` without a task. They are detached: tasks continue after the pool is
/// destroyed. Thread-safe.
class GrowingPool {
 public:
  GrowingPool(std::size_t mostThreads, std::chrono::milliseconds idleTime);

  /// Adds a task, which must not throw, and returns immediately. Throws `std::system_error` if no
  /// thread exists and none can be started; the task is then kept and runs once a later call
  /// succeeds in starting a thread.
  void run(std::function<void()> task);

  std::size_t threadCount() const;

 private:
  struct State;
  const std::shared_ptr<State> state_;
};

}  // namespace orivanta::foundation

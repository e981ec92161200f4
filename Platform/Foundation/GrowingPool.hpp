// Threads that are started when work waits and end when they have been idle.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Runs each task at once, whatever the others do, as long as there are fewer than `mostThreads`
/// threads: a thread that is idle takes the task, else a new thread is started. Beyond that limit,
/// or where the system starts no more threads, tasks wait for the next thread that becomes free, in
/// the order in which they were added. So a task must not wait for another one where `mostThreads`
/// tasks may do so at the same time.
///
/// Threads end after `idleTime` without a task. They are detached: tasks go on running after the
/// pool is destroyed. Any thread.
class ORIVANTA_API GrowingPool {
 public:
  GrowingPool(std::size_t mostThreads, std::chrono::milliseconds idleTime);

  /// Adds a task, which must not throw, and returns at once. Throws `std::system_error` if there is
  /// no thread and none can be started; the task then runs with the next one that is added.
  void run(std::function<void()> task);

  std::size_t threadCount() const;

 private:
  struct State;
  const std::shared_ptr<State> state_;
};

}  // namespace orivanta::foundation

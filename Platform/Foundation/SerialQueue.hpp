// A queue that runs its tasks one at a time in the background.
// Public header.
#pragma once

#include <functional>
#include <memory>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Tasks run in the order in which they were added. Two tasks of the same queue never run
/// concurrently. A task sees everything that earlier tasks of its queue wrote. All functions are
/// safe to call from any thread, including from a task of the queue.
///
/// A queue does not wait for the tasks of other queues. A task may block, for example until a task
/// of another queue has run. The queues share a thread pool with one thread for each queue that is
/// running a task, up to 512. If 512 tasks block at the same time, the tasks of other queues wait
/// until one of them returns; only in this case can tasks that wait for one another block all
/// queues. If the system cannot start 512 threads, the limit is the number that it can start. In a
/// browser, the tasks run on the page's thread, never inside `async` or `resume`, and must not
/// block.
///
/// A queue is shared by reference. Waiting tasks keep it alive. A suspended queue without
/// references is destroyed, and its waiting tasks do not run.
class ORIVANTA_API SerialQueue : public std::enable_shared_from_this<SerialQueue> {
 public:
  /// Returns a queue without tasks that is not suspended.
  static std::shared_ptr<SerialQueue> make();
  ~SerialQueue();
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;

  /// Adds a task and returns immediately. A task must not throw.
  void async(std::function<void()> task);

  /// Prevents further tasks from starting. Calls nest.
  void suspend();

  /// Reverts one call of `suspend`.
  void resume();

 private:
  struct State;
  SerialQueue();
  void drain();
  void scheduleIfReady();

  std::unique_ptr<State> state_;
};

}  // namespace orivanta::foundation

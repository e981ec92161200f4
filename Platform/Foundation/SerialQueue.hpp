// A queue that runs tasks one after the other on background threads.
// Public header.
#pragma once

#include <functional>
#include <memory>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Tasks run in the order in which they were added, never two of one queue at once. A task sees
/// everything that earlier tasks of its queue wrote. All operations are safe from any thread, also
/// from a task of the queue itself.
///
/// No queue waits for the tasks of another one: a task may block, also until a task of another
/// queue has run. The queues share a pool that has as many threads as queues have a task running,
/// and up to 512. When 512 tasks block at the same time, the tasks of further queues wait until one
/// of them returns; only then can tasks that wait for one another stop all queues. Where the system
/// starts fewer threads than that, their number is the limit.
///
/// The queue is shared by reference; tasks still waiting keep it alive. A suspended queue that
/// nobody refers to any more is dropped together with its tasks, unrun.
class ORIVANTA_API SerialQueue : public std::enable_shared_from_this<SerialQueue> {
 public:
  /// A queue without tasks that is not suspended.
  static std::shared_ptr<SerialQueue> make();
  ~SerialQueue();
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;

  /// Adds a task and returns at once. A task must not throw.
  void async(std::function<void()> task);

  /// Holds back the tasks that have not started. Calls nest.
  void suspend();

  /// Undoes one `suspend`.
  void resume();

 private:
  struct State;
  SerialQueue();
  void drain();
  void scheduleIfReady();

  std::unique_ptr<State> state_;
};

}  // namespace orivanta::foundation

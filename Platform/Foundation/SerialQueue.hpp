// A queue that runs tasks one after the other on a small pool of background threads.
#pragma once

#include <functional>
#include <memory>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Tasks run in the order in which they were added, never two of one queue at once, on threads of
/// a pool that all queues of the process share. A task sees everything that earlier tasks of its
/// queue wrote. All operations are safe from any thread, also from a task of the queue itself.
///
/// The queue is shared by reference; tasks still waiting keep it alive. A suspended queue that
/// nobody refers to any more is dropped together with its tasks, unrun.
class ORIVANTA_API SerialQueue : public std::enable_shared_from_this<SerialQueue> {
 public:
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

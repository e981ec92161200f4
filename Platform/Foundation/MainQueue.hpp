// A queue of tasks for the user interface's thread. The host decides when they run.
// Public header.
#pragma once

#include <functional>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation::mainQueue {

/// Adds a task and returns immediately. `drain` runs the tasks in the order in which they were
/// added. A task must not throw. Any thread.
ORIVANTA_API void async(std::function<void()> task);

/// Runs the waiting tasks, but not the tasks that they add. The host calls it on its main thread,
/// which must always be the same thread. Returns whether a task ran.
ORIVANTA_API bool drain();

/// Waits until a task can be drained or the time has passed. `seconds` is limited to one day.
/// Returns whether a task is waiting. In a browser it cannot wait: it stops the program if there is
/// no task and `seconds` is above 0.
ORIVANTA_API bool wait(double seconds);

/// Sets a function that is called after each task is added, on the thread that adds it. A host that
/// runs an event loop can use it to wake the loop. The function must not use this queue. An empty
/// function removes it. After `setWake` has returned, the previous function is no longer called.
ORIVANTA_API void setWake(std::function<void()> wake);

}  // namespace orivanta::foundation::mainQueue

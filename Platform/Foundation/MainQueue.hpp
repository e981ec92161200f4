// Work for the thread that owns the user interface, done whenever its host says so.
// Public header.
#pragma once

#include <functional>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation::mainQueue {

/// Adds a task and returns at once. Tasks run in the order of their adding, in `drain`. A task must
/// not throw. Any thread.
ORIVANTA_API void async(std::function<void()> task);

/// Runs what waits, without what those tasks add. Called by the host on its main thread, which is
/// always the same. Returns whether something ran.
ORIVANTA_API bool drain();

/// Waits until something is there to drain, at most so long (a day at most). Returns whether there
/// is.
ORIVANTA_API bool wait(double seconds);

/// Called, on the thread that adds, after each adding: a host with an event loop of its own wakes
/// it there. It must not use the queue itself. Empty for none; once `setWake` has returned, the
/// former one is not called any more.
ORIVANTA_API void setWake(std::function<void()> wake);

}  // namespace orivanta::foundation::mainQueue

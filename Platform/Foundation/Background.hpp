// Runs tasks in the background: on threads, or in a browser in later turns of the page's thread.
#pragma once

#include <functional>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Runs a task concurrently with other tasks, but never inside this call, and returns immediately.
/// The tasks start in the order in which they were added. At most as many as there are processors,
/// but at least 4, run at the same time. In a browser they run one after the other, between the
/// events of the page. A task must not throw, and must not wait for another task. Any thread.
ORIVANTA_API void runInBackground(std::function<void()> task);

/// As above, for a task that may block. Up to 512 of these tasks run at the same time, on threads
/// that no other tasks use. In a browser, a task must not block. Throws `std::system_error` if no
/// thread can be started; the task then runs after a later call has succeeded.
void runBlockingInBackground(std::function<void()> task);

/// Returns whether a task that can be divided should end now and add the rest of its work as a new
/// task, so that the page can react. Always false where tasks run on threads.
bool isTurnOver();

}  // namespace orivanta::foundation

// Waits for other threads. Code that also runs in a browser waits only with these functions.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Waits until `isMet` returns true. Call it with the lock held; `isMet` is called with the lock
/// held as well. `changed` must be notified after each change that can meet the condition. With a
/// single thread nothing can change during the wait: if `isMet` returns false, the program stops.
ORIVANTA_API void waitUntil(std::condition_variable& changed, std::unique_lock<std::mutex>& lock,
                            const std::function<bool()>& isMet);

/// As above, but waits no longer than `longest`. Returns the last result of `isMet`. With a single
/// thread, the program stops only if `longest` is above 0.
ORIVANTA_API bool waitFor(std::condition_variable& changed, std::unique_lock<std::mutex>& lock,
                          std::chrono::duration<double> longest,
                          const std::function<bool()>& isMet);

}  // namespace orivanta::foundation

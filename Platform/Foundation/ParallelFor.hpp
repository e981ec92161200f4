// Sharing out independent pieces of work among the processors.
#pragma once

#include <cstddef>
#include <functional>

namespace orivanta::foundation {

/// Calls `body` once with each number from 0 to `count` - 1, in any order, on the calling thread
/// and on idle threads of the pool behind the serial queues, and returns when all calls have. The
/// caller sees what they wrote. Never waits for a thread that is busy with something else, so it
/// may be called from a task of a queue. `body` must not throw.
void parallelFor(std::size_t count, const std::function<void(std::size_t)>& body);

}  // namespace orivanta::foundation

// Sharing out independent pieces of work among the processors.
#pragma once

#include <cstddef>
#include <functional>

namespace orivanta::foundation {

/// Calls `body` once with each number from 0 to `count` - 1, in any order, on the calling thread
/// and on idle threads of the background pool, and returns when all calls have. The
/// caller sees what they wrote. Never waits for a thread that is busy with something else, so it
/// may be called from a task of a queue. If a call throws, calls that have not started are left out
/// and one of the exceptions is thrown again to the caller, after the running calls have ended.
///
/// A thread takes `inARow` consecutive numbers at a time: more than one where a call is short, or
/// where neighbors write to the same memory.
void parallelFor(std::size_t count, const std::function<void(std::size_t)>& body,
                 std::size_t inARow = 1);

}  // namespace orivanta::foundation

// Runs the iterations of a loop on several threads, where there are threads.
#pragma once

#include <cstddef>
#include <functional>

namespace orivanta::foundation {

/// Calls `body` once with each number from 0 to `count` - 1, in any order, on the calling thread
/// and on the idle threads of `runInBackground`. Returns after all calls have ended; their writes
/// are then visible to the caller. It never waits for busy threads, so it may be called from a task
/// of a queue. If a call throws, calls that have not started are skipped, and one of the exceptions
/// is rethrown to the caller after the running calls have ended.
///
/// A thread takes `inARow` consecutive numbers at a time. Use more than one if a call is short, or
/// if neighboring calls write to the same memory.
void parallelFor(std::size_t count, const std::function<void(std::size_t)>& body,
                 std::size_t inARow = 1);

}  // namespace orivanta::foundation

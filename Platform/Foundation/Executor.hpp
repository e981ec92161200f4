// A function that runs tasks.
// Public header.
#pragma once

#include <functional>

namespace orivanta::foundation {

/// Runs a task immediately or later, on a thread that the executor chooses. Tasks from one thread
/// run in the order in which that thread passed them, one at a time. Examples are
/// `mainQueue::async` and a function that posts to the event loop of another toolkit.
using Executor = std::function<void(std::function<void()> task)>;

}  // namespace orivanta::foundation

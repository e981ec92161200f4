// Where tasks run.
// Public header.
#pragma once

#include <functional>

namespace orivanta::foundation {

/// Runs a task, on a thread of its own choice, now or later. Tasks that one thread hands over run
/// in that order, one at a time. `mainQueue::async` is one; so is a function that posts to the
/// event loop of another toolkit.
using Executor = std::function<void(std::function<void()> task)>;

}  // namespace orivanta::foundation

// The turns in which the page's thread runs background tasks. The host page may decide when.
#pragma once

#include <functional>

namespace orivanta::foundation {

/// Sets the function that asks the page for a turn. The page must then call `runTurn` soon, but not
/// inside the function; a message to itself serves best, since timers are slowed down. The function
/// is called at most once for each turn. If it is empty, the page is asked with a timer. Set it
/// before the first task is added.
void setTurnRequest(std::function<void()> request);

/// Runs background tasks for about 8 ms, and asks for another turn if tasks are left. Does nothing
/// if there are none, or if it is called by a task.
void runTurn();

}  // namespace orivanta::foundation

// Asks the page for a turn by a timer.
#pragma once

namespace orivanta::foundation {

/// Makes the page call `runTurn` in a later turn of its event loop.
void requestTurnByTimer();

}  // namespace orivanta::foundation

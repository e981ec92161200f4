#include "Platform/Foundation/Browser/TurnTimer.hpp"

#include <emscripten.h>

#include "Platform/Foundation/Browser/Turns.hpp"

namespace orivanta::foundation {

void requestTurnByTimer() {
  emscripten_async_call([](void*) { runTurn(); }, nullptr, 0);
}

}  // namespace orivanta::foundation

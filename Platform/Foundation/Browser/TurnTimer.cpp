#include "Platform/Foundation/Browser/TurnTimer.hpp"

#include <emscripten/html5.h>

#include "Platform/Foundation/Browser/Turns.hpp"

namespace orivanta::foundation {

void requestTurnByTimer() {
  emscripten_set_timeout([](void*) { runTurn(); }, 0, nullptr);
}

}  // namespace orivanta::foundation

#include "Platform/Foundation/Background.hpp"

#include <utility>

#include "Platform/Foundation/Browser/TurnQueue.hpp"
#include "Platform/Foundation/Browser/TurnTimer.hpp"
#include "Platform/Foundation/Browser/Turns.hpp"

namespace orivanta::foundation {

namespace {

TurnQueue& queue() {
  static auto& instance = *new TurnQueue(requestTurnByTimer);
  return instance;
}

}  // namespace

void runInBackground(std::function<void()> task) { queue().add(std::move(task)); }

void runBlockingInBackground(std::function<void()> task) { queue().add(std::move(task)); }

bool isTurnOver() { return queue().isTurnOver(); }

void setTurnRequest(std::function<void()> request) {
  if (!request) request = requestTurnByTimer;
  queue().setRequest(std::move(request));
}

void runTurn() { queue().runTurn(); }

}  // namespace orivanta::foundation

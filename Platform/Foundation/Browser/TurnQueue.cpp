#include "Platform/Foundation/Browser/TurnQueue.hpp"

namespace orivanta::foundation {

void TurnQueue::add(std::function<void()> task) {
  tasks_.push_back(std::move(task));
  if (!isRunning_) askForTurn();
}

void TurnQueue::runTurn() noexcept {
  if (isRunning_) return;
  isAsked_ = false;
  isRunning_ = true;
  end_ = now_() + turnLength;
  while (!tasks_.empty()) {
    std::function<void()> task = std::move(tasks_.front());
    tasks_.pop_front();
    task();
    task = nullptr;  // destroys captured values before the next task
    if (isTurnOver()) break;
  }
  isRunning_ = false;
  if (!tasks_.empty()) askForTurn();
}

void TurnQueue::askForTurn() {
  if (isAsked_) return;
  isAsked_ = true;
  request_();
}

}  // namespace orivanta::foundation

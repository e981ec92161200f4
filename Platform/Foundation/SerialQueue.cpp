#include "Platform/Foundation/SerialQueue.hpp"

#include <deque>
#include <mutex>
#include <utility>

#include "Platform/Foundation/Background.hpp"

namespace orivanta::foundation {

struct SerialQueue::State {
  std::mutex mutex;
  std::deque<std::function<void()>> tasks;
  int suspensions = 0;
  bool draining = false;
};

SerialQueue::SerialQueue() : state_(std::make_unique<State>()) {}
SerialQueue::~SerialQueue() = default;

std::shared_ptr<SerialQueue> SerialQueue::make() {
  return std::shared_ptr<SerialQueue>(new SerialQueue);
}

void SerialQueue::async(std::function<void()> task) {
  const std::lock_guard lock(state_->mutex);
  state_->tasks.push_back(std::move(task));
  scheduleIfReady();
}

void SerialQueue::suspend() {
  const std::lock_guard lock(state_->mutex);
  ++state_->suspensions;
}

void SerialQueue::resume() {
  const std::lock_guard lock(state_->mutex);
  --state_->suspensions;
  scheduleIfReady();
}

// Call with the mutex held.
void SerialQueue::scheduleIfReady() {
  if (state_->draining || state_->suspensions > 0 || state_->tasks.empty()) return;
  state_->draining = true;
  runBlockingInBackground([self = shared_from_this()] { self->drain(); });
}

void SerialQueue::drain() {
  std::unique_lock lock(state_->mutex);
  while (state_->suspensions == 0 && !state_->tasks.empty()) {
    std::function<void()> task = std::move(state_->tasks.front());
    state_->tasks.pop_front();
    lock.unlock();
    task();
    task = nullptr;  // destroys captured values before the next task, outside the lock
    lock.lock();
    if (isTurnOver()) break;
  }
  state_->draining = false;
  scheduleIfReady();
}

}  // namespace orivanta::foundation

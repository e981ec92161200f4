#include "Platform/Foundation/Threads/GrowingPool.hpp"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace orivanta::foundation {

struct GrowingPool::State {
  void work();
  bool waitForTask(std::unique_lock<std::mutex>& lock);

  std::size_t mostThreads = 0;
  std::chrono::milliseconds idleTime{};

  std::mutex mutex;  // guards the members below
  std::condition_variable added;
  std::deque<std::function<void()>> tasks;
  std::size_t threads = 0;
  std::size_t idleThreads = 0;  // includes woken threads that have not taken their task yet
};

GrowingPool::GrowingPool(std::size_t mostThreads, std::chrono::milliseconds idleTime)
    : state_(std::make_shared<State>()) {
  state_->mostThreads = mostThreads;
  state_->idleTime = idleTime;
}

void GrowingPool::run(std::function<void()> task) {
  State& state = *state_;
  const std::lock_guard lock(state.mutex);
  state.tasks.push_back(std::move(task));
  if (state.tasks.size() <= state.idleThreads) return state.added.notify_one();
  if (state.threads >= state.mostThreads) return;
  try {
    std::thread([shared = state_] { shared->work(); }).detach();
    ++state.threads;
  } catch (const std::system_error&) {
    if (state.threads == 0) throw;
  }
}

std::size_t GrowingPool::threadCount() const {
  const std::lock_guard lock(state_->mutex);
  return state_->threads;
}

void GrowingPool::State::work() {
  std::unique_lock lock(mutex);
  while (waitForTask(lock)) {
    std::function<void()> task = std::move(tasks.front());
    tasks.pop_front();
    lock.unlock();
    task();
    task = nullptr;  // destroys the captured values outside the lock
    lock.lock();
  }
  --threads;
}

// Returns false if the thread must end.
bool GrowingPool::State::waitForTask(std::unique_lock<std::mutex>& lock) {
  if (!tasks.empty()) return true;
  ++idleThreads;
  const bool found = added.wait_for(lock, idleTime, [this] { return !tasks.empty(); });
  --idleThreads;
  return found;
}

}  // namespace orivanta::foundation

#include "Platform/Foundation/MainQueue.hpp"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <utility>

#include "Platform/Foundation/Waiting.hpp"

namespace orivanta::foundation::mainQueue {

namespace {

struct Queue {
  std::mutex mutex;
  std::condition_variable added;
  std::deque<std::function<void()>> tasks;
  std::uint64_t takenCount = 0;  // number of tasks taken out so far

  std::mutex wakeMutex;  // held while `wake` is called; never together with `mutex`
  std::function<void()> wake;
};

// Never destroyed, because background work may add tasks while the process ends.
Queue& queue() {
  static auto& instance = *new Queue;
  return instance;
}

}  // namespace

void async(std::function<void()> task) {
  Queue& q = queue();
  {
    const std::lock_guard lock(q.mutex);
    q.tasks.push_back(std::move(task));
  }
  q.added.notify_all();
  const std::lock_guard lock(q.wakeMutex);
  if (q.wake) q.wake();
}

// A task may call this function itself; the outer call then continues with the remaining tasks.
bool drain() {
  Queue& q = queue();
  std::unique_lock lock(q.mutex);
  if (q.tasks.empty()) return false;
  const std::uint64_t end = q.takenCount + q.tasks.size();
  while (q.takenCount < end) {
    std::function<void()> task = std::move(q.tasks.front());
    q.tasks.pop_front();
    ++q.takenCount;
    lock.unlock();
    task();
    task = nullptr;  // destroys captured values before the next task, outside the lock
    lock.lock();
  }
  return true;
}

bool wait(double seconds) {
  // Limits the wait, because the clock's arithmetic overflows after some centuries.
  constexpr double longestWait = 24.0 * 3600.0;
  Queue& q = queue();
  std::unique_lock lock(q.mutex);
  return waitFor(q.added, lock, std::chrono::duration<double>(std::min(seconds, longestWait)),
                 [&] { return !q.tasks.empty(); });
}

void setWake(std::function<void()> wake) {
  Queue& q = queue();
  const std::lock_guard lock(q.wakeMutex);
  q.wake = std::move(wake);
}

}  // namespace orivanta::foundation::mainQueue

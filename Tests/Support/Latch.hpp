// A latch that threads and servers can wait for. Once opened, it stays open.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

namespace orivanta::test {

/// Tests fail if something that must happen takes longer than this. Much longer than needed on any
/// machine; no test measures time.
constexpr std::chrono::seconds patience{120};

/// Thread-safe.
class Latch {
 public:
  void open() {
    std::vector<std::function<void()>> waiting;
    {
      const std::lock_guard lock(mutex_);
      isOpen_ = true;
      waiting.swap(waiting_);
    }
    opened_.notify_all();
    for (const auto& action : waiting) action();
  }

  /// Blocks until the latch is open. Returns false after `patience`.
  [[nodiscard]] bool wait() {
    std::unique_lock lock(mutex_);
    return opened_.wait_for(lock, patience, [this] { return isOpen_; });
  }

  bool isOpen() {
    const std::lock_guard lock(mutex_);
    return isOpen_;
  }

  /// Runs the action when the latch opens, on the thread that opens it, or immediately if it is
  /// open.
  void whenOpen(std::function<void()> action) {
    {
      const std::lock_guard lock(mutex_);
      if (!isOpen_) {
        waiting_.push_back(std::move(action));
        return;
      }
    }
    action();
  }

 private:
  std::mutex mutex_;
  std::condition_variable opened_;
  bool isOpen_ = false;
  std::vector<std::function<void()>> waiting_;
};

}  // namespace orivanta::test

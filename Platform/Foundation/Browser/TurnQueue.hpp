// A queue whose tasks run in turns of limited length.
#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <utility>

namespace orivanta::foundation {

/// The background tasks of a program with one thread. Not thread-safe.
class TurnQueue {
 public:
  using Clock = std::chrono::steady_clock;

  /// A turn that has taken this long starts no further task.
  static constexpr std::chrono::milliseconds turnLength{8};

  /// `request` asks the host to call `runTurn` later. `now` returns the time.
  explicit TurnQueue(std::function<void()> request,
                     std::function<Clock::time_point()> now = Clock::now)
      : request_(std::move(request)), now_(std::move(now)) {}

  /// Replaces the function that asks for a turn.
  void setRequest(std::function<void()> request) { request_ = std::move(request); }

  /// Adds a task, which must not throw, and asks for a turn if none is expected.
  void add(std::function<void()> task);

  /// Runs tasks in the order in which they were added, at least one, until the turn is over. Asks
  /// for another turn if tasks are left. A call by a task does nothing.
  void runTurn() noexcept;

  /// Returns whether the time of the running turn has passed.
  bool isTurnOver() const { return isRunning_ && now_() >= end_; }

 private:
  void askForTurn();

  std::function<void()> request_;
  const std::function<Clock::time_point()> now_;
  std::deque<std::function<void()>> tasks_;
  bool isAsked_ = false;  // for a turn that has not begun
  bool isRunning_ = false;
  Clock::time_point end_;  // of the running turn
};

}  // namespace orivanta::foundation

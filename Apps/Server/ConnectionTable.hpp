// Who is connected, and who has to go when there is no room for a new client.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <list>
#include <mutex>

namespace orivanta::server {

/// Keeps the connections in the order in which they are closed for a new one. Any thread. Times are
/// given by the caller and never go back.
class ConnectionTable {
 public:
  using Time = std::chrono::steady_clock::time_point;
  enum class Phase {
    idle,     ///< no request has arrived in full
    working,  ///< the answer is being made; never closed
    sending,  ///< the answer is on its way
  };

 private:
  struct Entry {
    std::function<void()> close;
    Phase phase = Phase::idle;
    Time since;  // of the phase; while sending, of the last progress
    bool isClosing = false;
  };

 public:
  using Place = std::list<Entry>::iterator;

  /// A sending connection may be closed for a new one when it has made no progress for `stallTime`.
  ConnectionTable(std::size_t capacity, std::chrono::milliseconds stallTime)
      : capacity_(capacity), stallTime_(stallTime) {}

  /// Adds an idle connection. `close` is called at most once, on the thread that calls `makeRoom`
  /// or `closeStalled`; it returns without waiting for the connection's end. The place is valid
  /// until it is passed to `leave`.
  Place enter(Time now, std::function<void()> close);
  void leave(Place place);

  /// Records a new phase, or progress in sending. Returns false if the connection has been told to
  /// close.
  bool update(Place place, Phase phase, Time now);

  /// Whether one more connection may enter. In a full table one is closed for it, see `closeOne`.
  bool makeRoom(Time now);

  /// Closes the connection that has been idle for longest, else the sending one that made no
  /// progress for longest. Returns false when there is neither.
  bool closeOne(Time now);

  /// Closes the sending connection that made no progress for longest, if there is one.
  void closeStalled(Time now);

 private:
  std::list<Entry>& listOf(Phase phase);
  std::list<Entry>* stalled(Time now);
  bool closeFirst(std::list<Entry>* list, std::unique_lock<std::mutex> lock);

  const std::size_t capacity_;
  const std::chrono::milliseconds stallTime_;
  std::mutex mutex_;       // guards what follows; never held while a connection is told to close
  std::list<Entry> idle_;  // these are ordered by `since`
  std::list<Entry> working_;
  std::list<Entry> sending_;
  std::list<Entry> closing_;  // these count no longer
};

}  // namespace orivanta::server

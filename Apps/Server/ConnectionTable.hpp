// The open connections, and which of them to close when a new client needs room.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <mutex>

namespace orivanta::server {

/// Keeps connections in the order in which they are closed for new ones. Thread-safe. The caller
/// passes the current time, which must never decrease.
class ConnectionTable {
 public:
  using Time = std::chrono::steady_clock::time_point;
  enum class Phase {
    idle,     ///< no complete request has arrived
    working,  ///< the response is being prepared; never closed
    sending,  ///< the response is being sent
  };

 private:
  struct Entry {
    std::function<void()> close;
    Phase phase = Phase::idle;
    Time since;               // start of the phase; while sending, time of the last progress
    Time start;               // start of the connection plus the time it was idle
    std::uint64_t taken = 0;  // bytes of all responses that the client has received
    bool isClosing = false;
  };

 public:
  using Place = std::list<Entry>::iterator;

  /// A sending connection may be closed for a new one when it has made no progress for `stallTime`,
  /// or when the time in which it was not idle has reached `grace`, which must be positive.
  ConnectionTable(std::size_t capacity, std::chrono::milliseconds stallTime,
                  std::chrono::milliseconds grace)
      : capacity_(capacity), stallTime_(stallTime), grace_(grace) {}

  /// Adds an idle connection. `close` is called at most once, on the thread that calls `makeRoom`,
  /// `closeOne` or `closeSender`, and must return without waiting for the connection to end. The
  /// place is valid until it is passed to `leave`.
  Place enter(Time now, std::function<void()> close);
  void leave(Place place);

  /// Records a new phase. Returns false if the connection has been asked to close.
  bool update(Place place, Phase phase, Time now);

  /// Records that the client of a sending connection has received `bytes` more.
  void progress(Place place, std::uint64_t bytes, Time now);

  /// Returns whether one more connection may enter. If the table is full, closes one; see
  /// `closeOne`.
  bool makeRoom(Time now);

  /// Closes the connection that has been idle longest, or else one chosen by `closeSender`. Returns
  /// false if there is none.
  bool closeOne(Time now);

  /// Closes the sending connection that has made no progress for longest, if that is at least
  /// `stallTime`. Otherwise closes the connection with the lowest average rate, not counting idle
  /// time, among those that have used up their `grace`. Returns false if there is none.
  bool closeSender(Time now);

 private:
  std::list<Entry>& listOf(Phase phase);
  Place sender(Time now);
  bool close(Place place, std::unique_lock<std::mutex> lock);

  const std::size_t capacity_;
  const std::chrono::milliseconds stallTime_;
  const std::chrono::milliseconds grace_;
  std::mutex mutex_;       // guards the members below; not held while `close` is called
  std::list<Entry> idle_;  // ordered by `since`
  std::list<Entry> working_;
  std::list<Entry> sending_;
  std::list<Entry> closing_;  // no longer counted
};

}  // namespace orivanta::server

// Who is connected, and who has to go when there is no room for a new client.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
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
    Time since;               // of the phase; while sending, of the last progress
    Time start;               // of the connection, put off by the time it was idle
    std::uint64_t taken = 0;  // by the client, of all answers
    bool isClosing = false;
  };

 public:
  using Place = std::list<Entry>::iterator;

  /// A sending connection may be closed for a new one when it has made no progress for `stallTime`,
  /// or when it has not been idle for `grace` in all, which is more than 0.
  ConnectionTable(std::size_t capacity, std::chrono::milliseconds stallTime,
                  std::chrono::milliseconds grace)
      : capacity_(capacity), stallTime_(stallTime), grace_(grace) {}

  /// Adds an idle connection. `close` is called at most once, on the thread that calls `makeRoom`,
  /// `closeOne` or `closeSender`; it returns without waiting for the connection's end. The place is
  /// valid until it is passed to `leave`.
  Place enter(Time now, std::function<void()> close);
  void leave(Place place);

  /// Records a new phase. Returns false if the connection has been told to close.
  bool update(Place place, Phase phase, Time now);

  /// Records that the client of a sending connection has taken `bytes` more.
  void progress(Place place, std::uint64_t bytes, Time now);

  /// Whether one more connection may enter. In a full table one is closed for it, see `closeOne`.
  bool makeRoom(Time now);

  /// Closes the connection that has been idle for longest, else one that `closeSender` chooses.
  /// Returns false if there is none.
  bool closeOne(Time now);

  /// Closes the sending connection that has made no progress for longest, if that is `stallTime`.
  /// Otherwise closes the one with the lowest rate, on average over the time in which it was not
  /// idle, of those that have used up their `grace`. Returns false if there is none.
  bool closeSender(Time now);

 private:
  std::list<Entry>& listOf(Phase phase);
  Place sender(Time now);
  bool close(Place place, std::unique_lock<std::mutex> lock);

  const std::size_t capacity_;
  const std::chrono::milliseconds stallTime_;
  const std::chrono::milliseconds grace_;
  std::mutex mutex_;       // guards what follows; never held while a connection is told to close
  std::list<Entry> idle_;  // these are ordered by `since`
  std::list<Entry> working_;
  std::list<Entry> sending_;
  std::list<Entry> closing_;  // these count no longer
};

}  // namespace orivanta::server

// Tries to reach the server again while a stored venue is shown.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Apps/Viewer/RetryPauses.hpp"
#include "Apps/Viewer/VenueSource.hpp"

namespace orivanta::viewer {

/// Requests the list of venues, and then the venue that is shown, with growing pauses between
/// attempts that fail. Main thread only.
class Reconnection {
 public:
  struct Handlers {
    /// Returns the slug of the venue that is shown, or nothing if there is none.
    std::function<std::optional<std::string>()> slug;

    /// Called once, from the main queue. `venue` is null if none is shown.
    std::function<void(const VenueSource::Venues& venues, const std::shared_ptr<Venue>& venue)>
        connected;

    /// Called once instead, if the server rejects the credentials.
    std::function<void(const Problem& problem)> refused;
  };

  Reconnection(const ApiSettings& settings, const std::string& languages,
               const guidance::InterfaceTexts& texts, Handlers handlers);

  /// Call before each frame. `time` is in seconds.
  void advance(double time);

  /// Returns when `advance` must be called. Infinite while an attempt runs.
  double nextTime() const;

  /// Starts an attempt now, unless one is running.
  void tryNow();

 private:
  void fetchVenue(const VenueSource::Venues& venues);
  void failed(const Problem& problem);

  VenueSource source_;
  const Handlers handlers_;
  RetryPauses pauses_;
  bool isTrying_ = false;
  double time_ = 0;           // of the latest frame
  std::optional<double> at_;  // of the next attempt; empty before the first frame after an attempt
};

}  // namespace orivanta::viewer

// The places that the user has opened lately.
#pragma once

#include <memory>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::viewer {

/// Contains each place once, the latest first. Only in memory.
class RecentPlaces {
 public:
  static constexpr std::size_t most = 8;  ///< older places are dropped

  /// Makes a place the latest one. Does nothing if it is null.
  void add(const std::shared_ptr<Location>& place);

  /// Removes all places.
  void clear() { places_.clear(); }

  /// Returns the places, the latest first.
  const std::vector<std::shared_ptr<Location>>& places() const { return places_; }

 private:
  std::vector<std::shared_ptr<Location>> places_;
};

}  // namespace orivanta::viewer

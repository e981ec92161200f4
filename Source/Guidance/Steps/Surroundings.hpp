// What instructions need to know of a venue.
#pragma once

namespace orivanta {
class Venue;
}

namespace orivanta::guidance {

/// Provisional: empty.
class Surroundings {
 public:
  explicit Surroundings(const Venue& venue);
};

}  // namespace orivanta::guidance

// Where a walk leaves its place of departure and enters its destination.
#pragma once

#include <cstddef>

#include "Source/Guidance/Steps/Sections.hpp"
#include "Source/Guidance/Steps/Surroundings.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// Points of the line: the first entrance of the place of departure and the last one of the
/// destination. Without such an entrance, the ends of the line.
struct WalkEnds {
  /// The line must not be empty.
  WalkEnds(const WalkLine& line, const Section& section, const Surroundings& surroundings);

  std::size_t entrance = 0;
  std::size_t destination = 0;
  bool hasEntrance = false;     ///< whether `entrance` is one, not just the start of the line
  bool hasDestination = false;  ///< whether `destination` is an entrance
};

}  // namespace orivanta::guidance

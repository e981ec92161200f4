// The bends of a walk, and those of them that are turns.
#pragma once

#include <cstddef>
#include <vector>

#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// A change of direction, possibly over several points.
struct Bend {
  std::size_t first = 0;  ///< the point of the line where it begins
  std::size_t last = 0;   ///< the point where it ends
  double degrees = 0.0;   ///< the sum of its angles, left positive, from -180 to 180
};

/// A bend that a traveler must be told.
struct Turn {
  std::size_t first = 0;
  std::size_t last = 0;
  double degrees = 0.0;  ///< left positive, from -180 to 180
  Sharpness sharpness = Sharpness::turn;
};

/// Returns the bends of the simplified line. Bends closer than 3 m are one; so are two to the same
/// side within 10 m, if one of them is under 70 degrees and both together under 160.
std::vector<Bend> bendsOf(const WalkLine& line);

/// Returns the turns: the bends of at least 45 degrees. One under 70 degrees must persist: the
/// chords of 12 m before and after it must differ by 45 degrees as well.
std::vector<Turn> turnsOf(const WalkLine& line);

}  // namespace orivanta::guidance

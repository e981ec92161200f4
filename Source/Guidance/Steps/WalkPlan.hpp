// Decides what is told on a walk: which turns, and which of them join its ends.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Source/Guidance/Step.hpp"
#include "Source/Guidance/Steps/Bends.hpp"
#include "Source/Guidance/Steps/Sections.hpp"
#include "Source/Guidance/Steps/WalkEnds.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// A turn, and an opposite one within 10 m that is told with it.
struct ToldTurn {
  Turn turn;
  std::optional<Turn> second;

  std::size_t last() const { return second ? second->last : turn.last; }
};

/// Turns within the places at the ends of the walk are not told.
struct WalkPlan {
  WalkPlan(const WalkLine& line, const Section& section, const WalkEnds& ends);

  std::optional<ToldTurn> first;  ///< told with departing, or with leaving the connector
  std::vector<ToldTurn> turns;    ///< told one by one
  Side endSide = Side::none;      ///< of the ride or the destination at the end
  std::size_t endFirst = 0;       ///< the point of the line where that is told
};

}  // namespace orivanta::guidance

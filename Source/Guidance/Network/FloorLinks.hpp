// How many floors a ride passes.
#pragma once

#include <vector>

#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// Knows which floors connectors and walks across floors connect. Immutable; any thread. The
/// network must outlive it.
class FloorLinks {
 public:
  explicit FloorLinks(const GuideNetwork& network);

  /// Returns the number of floors from one floor up to another, negative if down, 0 if they have
  /// the same elevation. Floors of the same elevation count once. Counted are the floors on the
  /// ways that lead only up or only down: a mezzanine that only another building has, does not
  /// count.
  int between(GuideNetwork::Index from, GuideNetwork::Index to) const;

 private:
  using Index = GuideNetwork::Index;
  using Links = std::vector<std::vector<Index>>;  // per floor

  void link(Index one, Index other);
  double elevation(Index floor) const { return network_.floors()[floor].elevation; }
  std::vector<Index> passed(const Links& links, Index from, Index to) const;

  const GuideNetwork& network_;
  Links up_;
  Links down_;
};

}  // namespace orivanta::guidance

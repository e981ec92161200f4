// Finds the walking arc next to a position.
#pragma once

#include <memory>
#include <optional>

#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// An R-tree per floor. Immutable; any thread. Contains the walking arcs whose ends are on one
/// floor, one of several between the same nodes.
class EdgeIndex {
 public:
  explicit EdgeIndex(const GuideNetwork& network);
  ~EdgeIndex();

  /// Returns the arc next to a position on a floor. Returns nothing if the floor has no walking
  /// arcs or a coordinate is not between -1e9 and 1e9.
  std::optional<GuideNetwork::Index> nearest(const Map* floor, double x, double y) const;

 private:
  class Trees;
  std::unique_ptr<const Trees> trees_;
};

}  // namespace orivanta::guidance

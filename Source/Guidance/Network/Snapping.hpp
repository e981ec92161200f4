// Finds the point of the network next to a position.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Request.hpp"
#include "Source/Guidance/Snap.hpp"

namespace orivanta::guidance {

/// A point on an arc.
struct SnappedPosition {
  Snap snap;
  GuideNetwork::Index arc;
};

/// Returns the point of the network next to a position. Returns nothing if the floor has no
/// network.
std::optional<SnappedPosition> snapTo(const GuideData& data, const Position& position);

/// Returns a new node at the point, without an identifier.
std::shared_ptr<Node> nodeAt(const SnappedPosition& point, const GuideNetwork& network);

/// Returns the point on its arc, and on the arc in the other direction if there is one.
std::vector<Ends::Split> splitsAt(const SnappedPosition& point, const GuideNetwork& network);

}  // namespace orivanta::guidance

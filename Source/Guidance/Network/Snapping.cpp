#include "Source/Guidance/Network/Snapping.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Source/Node.hpp"

namespace orivanta::guidance {

std::optional<SnappedPosition> snapTo(const GuideData& data, const Position& position) {
  const auto arc = data.edges.nearest(position.map.get(), position.x, position.y);
  if (!arc) return std::nullopt;
  const auto& along = data.network.arcs()[*arc];
  const auto& from = data.network.vertex(along.origin);
  const auto& to = data.network.vertex(along.target);
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double square = dx * dx + dy * dy;
  const double share =
      square > 0.0
          ? std::clamp(((position.x - from.x) * dx + (position.y - from.y) * dy) / square, 0.0, 1.0)
          : 0.0;
  Snap snap{data.network.node(along.origin),
            data.network.node(along.target),
            share,
            from.x + share * dx,
            from.y + share * dy,
            0.0};
  snap.distance = std::hypot(position.x - snap.x, position.y - snap.y);
  return SnappedPosition{std::move(snap), *arc};
}

std::shared_ptr<Node> nodeAt(const SnappedPosition& point, const GuideNetwork& network) {
  static const auto data = RawData::parse(R"({"id": "", "x": 0, "y": 0})");
  auto node = Node::make(*data);
  const GuideNetwork::Arc& along = network.arcs()[point.arc];
  node->map = network.map(along.origin);
  node->x = point.snap.x;
  node->y = point.snap.y;
  node->z = std::lerp(network.z(along.origin), network.z(along.target), point.snap.share);
  return node;
}

std::vector<Ends::Split> splitsAt(const SnappedPosition& point, const GuideNetwork& network) {
  std::vector<Ends::Split> splits{{point.arc, point.snap.share}};
  const auto arcs = network.arcs();
  const auto& along = arcs[point.arc];
  const auto& end = network.vertex(along.target);
  for (GuideNetwork::Index back = end.firstArc; back != end.endArc; ++back)
    if (arcs[back].target == along.origin && arcs[back].connector == GuideNetwork::none) {
      splits.push_back({back, 1.0 - point.snap.share});
      break;
    }
  return splits;
}

}  // namespace orivanta::guidance

#include "Source/Guidance/Network/EdgeIndex.hpp"

#include <algorithm>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

namespace orivanta::guidance {

namespace {

namespace geometry = boost::geometry;
using Point = geometry::model::d2::point_xy<double>;
using Segment = geometry::model::segment<Point>;
using Entry = std::pair<Segment, GuideNetwork::Index>;
using Tree = geometry::index::rtree<Entry, geometry::index::linear<16>>;

}  // namespace

class EdgeIndex::Trees {
 public:
  std::unordered_map<const Map*, Tree> byFloor;
};

EdgeIndex::EdgeIndex(const GuideNetwork& network) {
  std::unordered_map<const Map*, std::vector<Entry>> entries;
  std::set<std::pair<GuideNetwork::Index, GuideNetwork::Index>> seen;
  const auto arcs = network.arcs();
  for (GuideNetwork::Index i = 0; i < arcs.size(); ++i) {
    const auto& from = network.vertex(arcs[i].origin);
    const auto& to = network.vertex(arcs[i].target);
    if (arcs[i].connector != GuideNetwork::none || from.floor != to.floor ||
        !seen.insert(std::minmax(arcs[i].origin, arcs[i].target)).second)
      continue;
    entries[network.floors()[from.floor].map.get()].push_back(
        {Segment(Point(from.x, from.y), Point(to.x, to.y)), i});
  }
  auto trees = std::make_unique<Trees>();
  for (const auto& [floor, list] : entries) trees->byFloor.emplace(floor, Tree(list));
  trees_ = std::move(trees);
}

EdgeIndex::~EdgeIndex() = default;

std::optional<GuideNetwork::Index> EdgeIndex::nearest(const Map* floor, double x, double y) const {
  const auto tree = trees_->byFloor.find(floor);
  if (tree == trees_->byFloor.end() || !GuideNetwork::isUsable(x) || !GuideNetwork::isUsable(y))
    return std::nullopt;
  const auto found = tree->second.qbegin(geometry::index::nearest(Point(x, y), 1));
  if (found == tree->second.qend()) return std::nullopt;
  return found->second;
}

}  // namespace orivanta::guidance

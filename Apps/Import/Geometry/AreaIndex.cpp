#include "Apps/Import/Geometry/AreaIndex.hpp"

#include <algorithm>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/geometry/strategies/relate/cartesian.hpp>
#include <iterator>
#include <utility>

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

namespace {

namespace bg = boost::geometry;
using Corner = bg::model::d2::point_xy<double>;
using Box = bg::model::box<Corner>;

// Outlines with fewer points are searched one point after the other.
bool isLarge(const Shape& shape) {
  constexpr std::size_t manyPoints = 64;
  std::size_t count = 0;
  for (const Polygon& polygon : shape) {
    count += polygon.outer.size();
    for (const Outline& hole : polygon.holes) count += hole.size();
  }
  return count > manyPoints;
}

Box cornersOf(Point low, Point high) { return {Corner(low.x, low.y), Corner(high.x, high.y)}; }

}  // namespace

struct AreaIndex::Tree {
  using Item = std::pair<Box, std::size_t>;
  std::vector<const Area*> areas;
  std::vector<double> surfaces;
  std::vector<std::unique_ptr<const Space>> spaces;  // of large outlines, when they are needed
  bg::index::rtree<Item, bg::index::quadratic<16>> boxes;
};

AreaIndex::AreaIndex(const Building& building, double level,
                     const std::function<bool(const Area&)>& choose)
    : tree_(std::make_unique<Tree>()) {
  std::vector<Tree::Item> items;
  for (const Area& area : building.areas) {
    if (area.level != level || area.shape.empty() || !choose(area)) continue;
    const package::Box bounds = boxOf(area.shape);
    items.emplace_back(cornersOf(bounds.least, bounds.most), tree_->areas.size());
    tree_->areas.push_back(&area);
    tree_->surfaces.push_back(areaOf(area.shape));
  }
  tree_->boxes = {items.begin(), items.end()};
  tree_->spaces.resize(tree_->areas.size());
}

AreaIndex::~AreaIndex() = default;

std::vector<const Area*> AreaIndex::within(Point low, Point high) const {
  std::vector<Tree::Item> items;
  tree_->boxes.query(bg::index::intersects(cornersOf(low, high)), std::back_inserter(items));
  std::vector<std::size_t> order;
  order.reserve(items.size());
  for (const Tree::Item& item : items) order.push_back(item.second);
  std::sort(order.begin(), order.end());
  std::vector<const Area*> found;
  found.reserve(order.size());
  for (const std::size_t i : order) found.push_back(tree_->areas[i]);
  return found;
}

// Null for small outlines. The areas are in the order of their addresses.
const Space* AreaIndex::spaceOf(const Area& area) const {
  const auto found = std::lower_bound(tree_->areas.begin(), tree_->areas.end(), &area);
  if (found == tree_->areas.end() || *found != &area || !isLarge(area.shape)) return nullptr;
  auto& space = tree_->spaces[static_cast<std::size_t>(found - tree_->areas.begin())];
  if (!space) space = std::make_unique<const Space>(area.shape);
  return space.get();
}

bool AreaIndex::contains(const Area& area, Point point) const {
  const Space* space = spaceOf(area);
  return space == nullptr ? importer::contains(area.shape, point) : space->contains(point);
}

double AreaIndex::distance(const Area& area, Point point, double atMost) const {
  const Space* space = spaceOf(area);
  if (space == nullptr) return std::min(atMost, distanceTo(area.shape, point));
  return space->contains(point) ? 0.0 : space->clearance(point, atMost);
}

std::vector<const Area*> AreaIndex::near(Point point, double distance) const {
  const Point reach{distance, distance};
  return within(point - reach, point + reach);
}

std::vector<const Area*> AreaIndex::near(const std::vector<Polygon>& shape, double distance) const {
  if (shape.empty()) return {};
  const package::Box bounds = boxOf(shape);
  const Point reach{distance, distance};
  return within(bounds.least - reach, bounds.most + reach);
}

const Area* AreaIndex::smallestAt(Point point) const {
  std::vector<Tree::Item> items;
  tree_->boxes.query(bg::index::intersects(Corner(point.x, point.y)), std::back_inserter(items));
  std::size_t best = tree_->areas.size();
  for (const Tree::Item& item : items) {
    const std::size_t i = item.second;
    if (!contains(*tree_->areas[i], point)) continue;
    if (best == tree_->areas.size() || tree_->surfaces[i] < tree_->surfaces[best] ||
        (tree_->surfaces[i] == tree_->surfaces[best] && i < best))
      best = i;
  }
  return best == tree_->areas.size() ? nullptr : tree_->areas[best];
}

}  // namespace orivanta::importer

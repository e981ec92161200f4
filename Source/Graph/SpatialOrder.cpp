#include "Source/Graph/SpatialOrder.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Source/Graph/HilbertCurve.hpp"
#include "Source/Node.hpp"

namespace orivanta {

namespace {

// One axis of the bounding rectangle of all nodes, divided into 65,536 cells.
class Axis {
 public:
  void include(double position) {
    low_ = std::min(low_, position);
    high_ = std::max(high_, position);
  }

  std::uint16_t cell(double position) const {
    const double share = (position / 2 - low_ / 2) / (high_ / 2 - low_ / 2);
    if (!(share > 0.0)) return 0;
    return static_cast<std::uint16_t>(std::min(share, 1.0) * 65535.0);
  }

 private:
  double low_ = std::numeric_limits<double>::infinity();
  double high_ = -std::numeric_limits<double>::infinity();
};

}  // namespace

NodeList inSpatialOrder(const NodeList& nodes) {
  Axis x;
  Axis y;
  std::unordered_map<const Map*, std::uint32_t> floors;
  for (const auto& node : nodes) {
    x.include(node->x);
    y.include(node->y);
    floors.try_emplace(node->map.get(), static_cast<std::uint32_t>(floors.size()));
  }
  std::vector<std::pair<std::uint64_t, std::size_t>> keys;
  keys.reserve(nodes.size());
  for (const auto& node : nodes) {
    const std::uint64_t floor = floors[node->map.get()];
    keys.emplace_back(floor << 32U | hilbertDistance(x.cell(node->x), y.cell(node->y)),
                      keys.size());
  }
  std::sort(keys.begin(), keys.end());
  NodeList ordered;
  ordered.reserve(nodes.size());
  for (const auto& key : keys) ordered.push_back(nodes[key.second]);
  return ordered;
}

}  // namespace orivanta

#include "Source/Guidance/Network/FloorLinks.hpp"

#include <algorithm>
#include <iterator>

namespace orivanta::guidance {

namespace {

void sortUnique(auto& values) {
  std::sort(values.begin(), values.end());
  values.erase(std::unique(values.begin(), values.end()), values.end());
}

}  // namespace

FloorLinks::FloorLinks(const GuideNetwork& network)
    : network_(network), up_(network.floors().size()), down_(network.floors().size()) {
  for (const auto& arc : network.arcs())
    link(network.vertex(arc.origin).floor, network.vertex(arc.target).floor);
}

void FloorLinks::link(Index one, Index other) {
  if (elevation(one) >= elevation(other)) return;
  if (std::find(up_[one].begin(), up_[one].end(), other) != up_[one].end()) return;
  up_[one].push_back(other);
  down_[other].push_back(one);
}

int FloorLinks::between(Index from, Index to) const {
  if (elevation(from) == elevation(to)) return 0;
  const bool isUp = elevation(from) < elevation(to);
  const auto above = passed(up_, isUp ? from : to, isUp ? to : from);
  const auto below = passed(down_, isUp ? to : from, isUp ? from : to);
  std::vector<Index> both;
  std::set_intersection(above.begin(), above.end(), below.begin(), below.end(),
                        std::back_inserter(both));
  std::vector<double> common(both.size());
  std::transform(both.begin(), both.end(), common.begin(),
                 [this](Index floor) { return elevation(floor); });
  sortUnique(common);
  const int count = static_cast<int>(common.size()) + 1;
  return isUp ? count : -count;
}

// Returns the floors that links lead to, with elevations strictly between those of the two floors.
std::vector<FloorLinks::Index> FloorLinks::passed(const Links& links, Index from, Index to) const {
  const auto [least, greatest] = std::minmax({elevation(from), elevation(to)});
  std::vector<bool> seen(links.size());
  std::vector<Index> reached;
  std::vector<Index> waiting{from};
  while (!waiting.empty()) {
    const Index here = waiting.back();
    waiting.pop_back();
    for (const Index next : links[here])
      if (!seen[next] && elevation(next) > least && elevation(next) < greatest) {
        seen[next] = true;
        reached.push_back(next);
        waiting.push_back(next);
      }
  }
  std::sort(reached.begin(), reached.end());
  return reached;
}

}  // namespace orivanta::guidance

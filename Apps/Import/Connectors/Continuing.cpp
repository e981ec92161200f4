#include "Apps/Import/Connectors/Continuing.hpp"

#include <map>
#include <utility>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Geometry/SegmentGrid.hpp"

namespace orivanta::importer {

namespace {

// The end of another piece that is nearest to an end.
std::size_t nearestOther(const SegmentGrid& ends, std::size_t end, double within) {
  std::size_t nearest = SegmentGrid::none;
  double best = within;
  ends.eachNear(ends.segments()[end].a, within, [&](std::size_t other) {
    const double away = package::distance(ends.segments()[end].a, ends.segments()[other].a);
    if (other / 2 == end / 2 || away > best || (away == best && other > nearest)) return;
    best = away;
    nearest = other;
  });
  return nearest;
}

}  // namespace

std::vector<std::size_t> joinContinuing(std::vector<Piece>& pieces) {
  std::map<std::pair<double, ConnectorKind>, std::vector<std::size_t>> groups;
  for (std::size_t i = 0; i < pieces.size(); ++i)
    groups[{pieces[i].level, pieces[i].kind}].push_back(i);
  DisjointSets sets(pieces.size());
  for (const auto& [key, group] : groups) {
    std::vector<Segment> ends;
    for (const std::size_t i : group)
      for (const double sign : {-1.0, 1.0})
        ends.push_back({pieces[i].box.end(sign), pieces[i].box.end(sign)});
    constexpr double near = 1.0;
    const SegmentGrid grid(ends, 0.0);
    for (std::size_t end = 0; end < ends.size(); ++end)
      if (const std::size_t next = nearestOther(grid, end, near); next != SegmentGrid::none)
        if (continues(pieces[group[end / 2]], pieces[group[next / 2]]))
          sets.join(group[end / 2], group[next / 2]);
  }
  std::vector<std::size_t> indices(pieces.size());
  std::vector<Piece> joined;
  for (const std::vector<std::size_t>& set : sets.all()) {
    for (const std::size_t i : set) {
      indices[i] = joined.size();
      if (i != set.front()) append(pieces[set.front()], pieces[i]);
    }
    joined.push_back(std::move(pieces[set.front()]));
  }
  pieces = std::move(joined);
  return indices;
}

}  // namespace orivanta::importer

#include "Apps/Import/Network/Attach.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

namespace {

constexpr double nearEnd = 0.45;    // meters; nearer to the end of a line, the end is taken
constexpr double nearFeet = 0.9;    // feet nearer to each other become one
constexpr double besideLine = 0.8;  // a door within this distance becomes a point of the line
constexpr double longStub = 3.0;    // longer stubs begin with a point in front of the door
constexpr double inFront = 1.2;     // of that point
constexpr double offWalls = 0.5;    // the same
constexpr std::size_t mostTried = 40;

std::vector<std::size_t> linesOf(const Draft& draft) {
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < draft.edges.size(); ++i)
    if (!draft.edges[i].stub) lines.push_back(i);
  return lines;
}

std::vector<std::uint32_t> singlesOf(const Draft& draft) {
  std::vector<bool> joined(draft.nodes.size());
  for (const DraftEdge& edge : draft.edges) joined[edge.from] = joined[edge.to] = true;
  std::vector<std::uint32_t> singles;
  for (std::uint32_t i = 0; i < joined.size(); ++i)
    if (!joined[i] && draft.nodes[i].isMovable()) singles.push_back(i);
  return singles;
}

std::vector<Segment> segmentsOf(const Draft& draft, const std::vector<std::size_t>& lines,
                                const std::vector<std::uint32_t>& singles) {
  std::vector<Segment> segments;
  segments.reserve(lines.size());
  for (const std::size_t i : lines)
    segments.push_back(
        {draft.nodes[draft.edges[i].from].position, draft.nodes[draft.edges[i].to].position});
  for (const std::uint32_t i : singles)
    segments.push_back({draft.nodes[i].position, draft.nodes[i].position});
  return segments;
}

DraftNode wayAt(Point position) { return {position, NodeKind::way, {}, {}, 0.0, 0.0, 0.0, {}}; }

}  // namespace

double Attach::distanceToLine(Point point, double atMost) const {
  const std::size_t line = grid_.nearest(point, atMost);
  if (line == SegmentGrid::none) return atMost;
  const auto& [a, b] = grid_.segments()[line];
  return package::distanceToSegment(a, b, point);
}

Attach::Attach(Draft& draft, const Space& space, Ways& ways, Lines lines)
    : draft_(draft),
      space_(space),
      ways_(ways),
      edges_(linesOf(draft)),
      singles_(singlesOf(draft)),
      grid_(segmentsOf(draft, edges_, singles_), 0.0),
      mayBend_(lines),
      attachments_(edges_.size() + singles_.size()) {}

// Sorted by distance, without repetitions.
std::vector<Attach::Foot> Attach::feetNear(Point point, double within) const {
  std::vector<Foot> feet;
  grid_.eachNear(point, within, [&](std::size_t i) {
    const auto& [a, b] = grid_.segments()[i];
    double fraction = package::nearestFraction(a, b, point);
    const double length = package::distance(a, b);
    if (fraction * length < nearEnd) fraction = 0.0;
    if ((1.0 - fraction) * length < nearEnd && fraction > 0.0) fraction = 1.0;
    const Point position = fraction == 1.0 ? b : a + (b - a) * fraction;
    const double distance = package::distance(position, point);
    if (distance <= within) feet.push_back({i, fraction, position, distance});
  });
  std::sort(feet.begin(), feet.end(), [](const Foot& a, const Foot& b) {
    return a.distance != b.distance ? a.distance < b.distance : a.line < b.line;
  });
  feet.erase(std::unique(feet.begin(), feet.end(),
                         [](const Foot& a, const Foot& b) { return a.line == b.line; }),
             feet.end());
  return feet;
}

std::optional<Attach::Foot> Attach::footInSight(const DraftNode& node, double within) const {
  std::vector<Foot> feet = feetNear(node.position, within);
  if (feet.size() > mostTried) feet.resize(mostTried);
  for (const Foot& foot : feet)
    if (sees(space_, node, wayAt(foot.position))) return foot;
  return {};
}

bool Attach::canBeOnLine(const Foot& foot, const DraftNode& node) const {
  if (mayBend_ == Lines::keep || node.kind != NodeKind::door || isSingle(foot.line) ||
      foot.distance > besideLine)
    return false;
  if (foot.fraction == 0.0 || foot.fraction == 1.0) return false;
  const DraftEdge& edge = draft_.edges[edges_[foot.line]];
  return sees(space_, node, draft_.nodes[edge.from]) && sees(space_, node, draft_.nodes[edge.to]);
}

void Attach::record(const Foot& foot, std::uint32_t node) {
  attachments_[foot.line].push_back(
      {foot.fraction, foot.position, node, canBeOnLine(foot, draft_.nodes[node])});
}

bool Attach::attach(std::uint32_t node) {
  for (const double within : {5.0, 20.0, 60.0})
    if (const auto foot = footInSight(draft_.nodes[node], within)) {
      record(*foot, node);
      return true;
    }
  std::optional<Foot> reached;
  const auto way =
      ways_.nearest(draft_.nodes[node], [&](const DraftNode& point) -> std::optional<DraftNode> {
        constexpr double besideSkeleton = 5.0;
        reached = footInSight(point, besideSkeleton);
        if (!reached) return {};
        return wayAt(reached->position);
      });
  if (!way) return false;
  std::uint32_t last = node;
  for (const Point bend : way->bends) {
    const std::uint32_t next = draft_.addWay(bend);
    draft_.addEdge(last, next, true);
    last = next;
  }
  record(*reached, last);
  return true;
}

bool Attach::attachAnyhow(std::uint32_t node, double within) {
  const std::vector<Foot> feet = feetNear(draft_.nodes[node].position, within);
  if (feet.empty()) return false;
  record(feet.front(), node);
  return true;
}

// A long stub in the open begins with a short one into the space, from which shortcuts lead on.
void Attach::addStub(std::uint32_t node, std::uint32_t foot) {
  const DraftNode from = draft_.nodes[node];
  const DraftNode to = draft_.nodes[foot];
  const Point way = to.position - from.position;
  const double length = package::length(way);
  if (mayBend_ == Lines::bend && from.kind != NodeKind::way && length > longStub) {
    std::vector<Point> points;
    if (from.slack > 0.0) points.push_back(from.position + from.inward * (from.gap + inFront));
    for (const double far : {inFront, 2.0 * inFront})
      points.push_back(from.position + way * (far / length));
    for (const Point point : points) {
      if (!space_.contains(point) || space_.clearance(point, offWalls) < offWalls ||
          !sees(space_, from, wayAt(point)) || !sees(space_, wayAt(point), to))
        continue;
      const std::uint32_t front = draft_.addWay(point);
      draft_.addEdge(node, front, true);
      draft_.addEdge(front, foot, true);
      return;
    }
  }
  draft_.addEdge(node, foot, true);
}

void Attach::divide(std::size_t line) {
  std::vector<Attachment>& all = attachments_[line];
  if (all.empty()) return;
  std::stable_sort(all.begin(), all.end(), [](const Attachment& a, const Attachment& b) {
    return a.fraction < b.fraction;
  });
  if (isSingle(line)) {
    for (const Attachment& one : all) addStub(one.node, singles_[line - edges_.size()]);
    return;
  }
  const DraftEdge edge = draft_.edges[edges_[line]];
  std::vector<std::uint32_t> points{edge.from};
  for (const Attachment& one : all) {
    if (one.onLine) {
      points.push_back(one.node);
      continue;
    }
    std::uint32_t foot = edge.to;
    if (one.fraction < 1.0) {
      const DraftNode& last = draft_.nodes[points.back()];
      const bool same =
          one.fraction == 0.0 || (points.size() > 1 && last.isMovable() &&
                                  package::distance(last.position, one.position) < nearFeet &&
                                  sees(space_, draft_.nodes[one.node], last));
      foot = same ? points.back() : draft_.addWay(one.position);
      if (!same) points.push_back(foot);
    }
    addStub(one.node, foot);
  }
  points.push_back(edge.to);
  draft_.edges[edges_[line]].to = points[1];
  for (std::size_t i = 1; i + 1 < points.size(); ++i)
    draft_.edges.push_back({points[i], points[i + 1], edge.oneWay, edge.stub, false});
}

void Attach::finish() {
  for (std::size_t line = 0; line < attachments_.size(); ++line) divide(line);
}

}  // namespace orivanta::importer

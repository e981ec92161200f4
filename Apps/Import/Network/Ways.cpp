#include "Apps/Import/Network/Ways.hpp"

#include <algorithm>
#include <queue>
#include <utility>

#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/WaysPart.hpp"

namespace orivanta::importer {

namespace {

constexpr double roughly = 0.05;        // meters; ways are straightened in the real space
constexpr double farthestStart = 60.0;  // meters from a node to the points at which ways begin

bool isNear(const package::Box& box, Point point, double distance) {
  return point.x >= box.least.x - distance && point.x <= box.most.x + distance &&
         point.y >= box.least.y - distance && point.y <= box.most.y + distance;
}

}  // namespace

Ways::Ways(const Skeleton& skeleton, const Space& space) : skeleton_(&skeleton), space_(space) {}

Ways::Ways(const Shape& shape, double leastClearance, const Space& space)
    : shape_(&shape), leastClearance_(leastClearance), space_(space) {
  boxes_.reserve(shape.size());
  for (const Polygon& polygon : shape) boxes_.push_back(boxOf({polygon}));
}

Ways::~Ways() = default;

const Skeleton& Ways::skeleton() {
  if (skeleton_ == nullptr) skeleton_ = &made_.emplace(makeSkeleton(*shape_, leastClearance_));
  return *skeleton_;
}

WaysPart& Ways::whole() {
  if (!whole_) whole_ = std::make_unique<WaysPart>(&skeleton());
  return *whole_;
}

// The polygons into which a node at the point may see.
std::vector<std::size_t> Ways::polygonsNear(Point point) const {
  constexpr double farthest = 3.0;  // meters from a door to the space
  std::vector<std::size_t> near;
  for (std::size_t i = 0; i < shape_->size(); ++i)
    if (isNear(boxes_[i], point, farthest) && distanceTo({(*shape_)[i]}, point) <= farthest)
      near.push_back(i);
  return near;
}

WaysPart& Ways::partOf(const std::vector<std::size_t>& polygons) {
  std::unique_ptr<WaysPart>& part = parts_[polygons];
  if (!part) {
    Shape shape;
    for (const std::size_t i : polygons) shape.push_back((*shape_)[i]);
    part = std::make_unique<WaysPart>(nullptr, makeSkeleton(shape, leastClearance_, roughly));
  }
  return *part;
}

// A square that reaches at least half its size beyond the point. Nearby points have the same.
WaysPart& Ways::around(Point point, double size) {
  const double step = size / 2.0;
  const long column = std::lround(point.x / step);
  const long row = std::lround(point.y / step);
  std::unique_ptr<WaysPart>& part = squares_[{size, column, row}];
  if (part) return *part;
  const Point middle = Point{static_cast<double>(column), static_cast<double>(row)} * step;
  const Point reach{1.5 * step, 1.5 * step};
  const package::Box square{middle - reach, middle + reach};
  Shape shape;
  for (std::size_t i = 0; i < shape_->size(); ++i)
    if (boxes_[i].least.x < square.most.x && boxes_[i].most.x > square.least.x &&
        boxes_[i].least.y < square.most.y && boxes_[i].most.y > square.least.y)
      shape = joined(std::move(shape), clipped((*shape_)[i], square));
  part = std::make_unique<WaysPart>(nullptr, makeSkeleton(shape, leastClearance_, roughly));
  return *part;
}

// The nearest points in sight.
std::vector<Ways::Start> Ways::startsFor(const WaysPart& part, const DraftNode& node) const {
  constexpr std::size_t enough = 3;
  constexpr std::size_t mostTried = 60;
  std::vector<Start> seen;
  for (const double reach : {2.0, 6.0, 20.0, farthestStart}) {
    std::vector<Start> near;
    part.points->eachNear(node.position, reach, [&](std::size_t i) {
      const double distance = package::distance(part.skeleton.points[i], node.position);
      if (distance <= reach) near.push_back({static_cast<Index>(i), distance});
    });
    std::sort(near.begin(), near.end(), [](const Start& a, const Start& b) {
      return a.distance != b.distance ? a.distance < b.distance : a.point < b.point;
    });
    if (near.size() > mostTried) near.resize(mostTried);
    for (const Start& start : near)
      if (seen.size() < enough && sees(space_, node, part.nodeAt(start.point)))
        seen.push_back(start);
    if (!seen.empty()) break;
  }
  return seen;
}

std::optional<Ways::Index> Ways::search(WaysPart& part, const std::vector<Start>& starts,
                                        double longest,
                                        const std::function<bool(Index)>& isGoal) const {
  for (const Index point : part.touched) {
    part.costs[point] = WaysPart::unknown;
    part.before[point] = WaysPart::none;
  }
  part.touched.clear();
  part.isCutOff = false;
  using Entry = std::pair<double, Index>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  const auto reach = [&](Index point, double cost, Index before) {
    if (cost >= part.costs[point]) return;
    part.isCutOff = part.isCutOff || cost > longest;
    if (cost > longest) return;
    if (part.costs[point] == WaysPart::unknown) part.touched.push_back(point);
    part.costs[point] = cost;
    part.before[point] = before;
    open.emplace(cost, point);
  };
  for (const Start& start : starts) reach(start.point, start.distance, WaysPart::none);
  const std::vector<Point>& points = part.skeleton.points;
  while (!open.empty()) {
    const auto [cost, point] = open.top();
    open.pop();
    if (cost > part.costs[point]) continue;
    if (isGoal(point)) return point;
    for (const Index next : part.neighbors[point])
      reach(next, cost + package::distance(points[point], points[next]), point);
  }
  return {};
}

// Leaves out every point that the one before it need not pass to see a later one.
std::vector<Point> Ways::straightened(const WaysPart& part, const DraftNode& from, Index last,
                                      const DraftNode& to) const {
  std::vector<DraftNode> way{to};
  for (Index point = last; point != WaysPart::none; point = part.before[point])
    way.push_back(part.nodeAt(point));
  way.push_back(from);
  std::reverse(way.begin(), way.end());
  constexpr std::size_t farthest = 120;
  std::vector<DraftNode> bent{way.front()};
  for (std::size_t i = 0; i + 1 < way.size();) {
    std::size_t next = std::min(way.size() - 1, i + farthest);
    while (next > i + 1 && !sees(space_, way[i], way[next])) --next;
    bent.push_back(way[next]);
    i = next;
  }
  tighten(bent);
  std::vector<Point> bends;
  for (std::size_t i = 1; i + 1 < bent.size(); ++i) bends.push_back(bent[i].position);
  return bends;
}

// Moves bends toward the straight line between their neighbors, as far as everything stays in
// sight.
void Ways::tighten(std::vector<DraftNode>& way) const {
  constexpr int rounds = 3;
  for (int round = 0; round < rounds; ++round)
    for (std::size_t i = 1; i + 1 < way.size(); ++i) {
      const Point from = way[i - 1].position;
      const Point to = way[i + 1].position;
      const Point bend = way[i].position;
      const Point straight = from + (to - from) * package::nearestFraction(from, to, bend);
      for (const double share : {0.9, 0.7, 0.5, 0.3, 0.15}) {
        way[i].position = bend + (straight - bend) * share;
        if (sees(space_, way[i - 1], way[i]) && sees(space_, way[i], way[i + 1])) break;
        way[i].position = bend;
      }
    }
}

std::optional<std::vector<Point>> Ways::between(const DraftNode& from, const DraftNode& to,
                                                double longest) {
  const std::vector<Start> ends = startsFor(whole(), to);
  if (ends.empty()) return {};
  const auto goal = search(whole(), startsFor(whole(), from), longest, [&](Index point) {
    return std::any_of(ends.begin(), ends.end(),
                       [&](const Start& end) { return end.point == point; });
  });
  if (!goal) return {};
  return straightened(whole(), from, *goal, to);
}

// Examines each point once in its life, and a part of the skeleton without any arrival once.
std::optional<Ways::Arrival> Ways::nearestIn(WaysPart& part, const DraftNode& from, double longest,
                                             const Arrive& arrive) const {
  std::vector<Start> starts = startsFor(part, from);
  part.hasStarts = !starts.empty();
  std::erase_if(starts, [&](const Start& start) { return part.leadsNowhere[start.point]; });
  std::optional<DraftNode> end;
  const auto goal = search(part, starts, longest, [&](Index point) {
    if (part.isNoArrival[point]) return false;
    end = arrive(part.nodeAt(point));
    part.isNoArrival[point] = !end;
    return end.has_value();
  });
  if (goal) return Arrival{*end, straightened(part, from, *goal, *end)};
  if (!part.isCutOff)
    for (const Index point : part.touched) part.leadsNowhere[point] = true;
  return {};
}

// Most ways are short. Near its border, the skeleton of a square is not that of the shape, so
// longer ways in it do not count. What has no continuation in a square has none outside it.
std::optional<Ways::Arrival> Ways::nearest(const DraftNode& from, const Arrive& arrive) {
  if (skeleton_ != nullptr) return nearestIn(whole(), from, WaysPart::unknown, arrive);
  const std::vector<std::size_t> polygons = polygonsNear(from.position);
  std::size_t borders = 0;
  for (const std::size_t i : polygons) borders += bordersOf({(*shape_)[i]}).size();
  constexpr std::size_t manyBorders = 2'000;
  if (borders > manyBorders)
    for (const double size : {25.0, 50.0, 2.0 * farthestStart}) {
      WaysPart& part = around(from.position, size);
      if (auto arrival = nearestIn(part, from, 0.4 * size, arrive)) return arrival;
      const bool isComplete = part.hasStarts || size / 2.0 >= farthestStart;
      if (!part.isCutOff && isComplete) return {};
    }
  return nearestIn(partOf(polygons), from, WaysPart::unknown, arrive);
}

}  // namespace orivanta::importer

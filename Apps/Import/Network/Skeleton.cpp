#include "Apps/Import/Network/Skeleton.hpp"

#include <algorithm>
#include <boost/polygon/segment_data.hpp>
#include <boost/polygon/voronoi.hpp>
#include <cmath>

namespace orivanta::importer {

namespace {

namespace polygon = boost::polygon;
using Diagram = polygon::voronoi_diagram<double>;
using Border = polygon::segment_data<int>;

constexpr double unit = 0.001;  // meters
constexpr double step = 0.5;    // meters between points
constexpr std::uint32_t none = 0xffffffff;

// The ring without corners at which it hardly bends: the result is nowhere farther than `tolerance`
// from it.
Outline withoutSlightBends(const Outline& ring, double tolerance) {
  constexpr std::size_t mostLeftOut = 40;  // corners in a row
  const auto isStraight = [&](std::size_t from, std::size_t to) {
    for (std::size_t i = from + 1; i < to; ++i)
      if (package::distanceToSegment(ring[from], ring[to % ring.size()], ring[i]) > tolerance)
        return false;
    return true;
  };
  Outline kept;
  for (std::size_t i = 0; i < ring.size();) {
    kept.push_back(ring[i]);
    std::size_t next = i + 1;
    while (next < ring.size() && next - i <= mostLeftOut && isStraight(i, next + 1)) ++next;
    i = next;
  }
  return kept.size() < 3 ? ring : kept;
}

Shape withoutSlightBends(const Shape& shape, double tolerance) {
  Shape simple;
  simple.reserve(shape.size());
  for (const Polygon& polygon : shape) {
    Polygon& one = simple.emplace_back();
    one.outer = withoutSlightBends(polygon.outer, tolerance);
    one.holes.reserve(polygon.holes.size());
    for (const Outline& hole : polygon.holes)
      one.holes.push_back(withoutSlightBends(hole, tolerance));
  }
  return simple;
}

std::vector<Border> wholeBorders(const Shape& shape) {
  std::vector<Border> borders;
  const auto whole = [](Point point) {
    return polygon::point_data<int>(static_cast<int>(std::lround(point.x / unit)),
                                    static_cast<int>(std::lround(point.y / unit)));
  };
  for (const Segment& segment : bordersOf(shape)) {
    const Border border(whole(segment.a), whole(segment.b));
    if (border.low() != border.high()) borders.push_back(border);
  }
  return borders;
}

class Maker {
 public:
  Maker(const Shape& shape, double leastClearance)
      : space_(shape), borders_(wholeBorders(shape)), leastClearance_(leastClearance) {
    polygon::construct_voronoi(borders_.begin(), borders_.end(), &diagram_);
    atVertex_.assign(diagram_.vertices().size(), none);
  }

  Skeleton make() {
    for (const Diagram::edge_type& edge : diagram_.edges())
      if (&edge < edge.twin() && edge.is_primary() && edge.is_finite()) add(edge);
    return std::move(skeleton_);
  }

 private:
  static Point pointOf(const Diagram::vertex_type& vertex) {
    return {vertex.x() * unit, vertex.y() * unit};
  }

  Segment borderOf(const Diagram::cell_type& cell) const {
    const Border& border = borders_[cell.source_index()];
    const Point low{border.low().x() * unit, border.low().y() * unit};
    const Point high{border.high().x() * unit, border.high().y() * unit};
    if (cell.contains_segment()) return {low, high};
    const bool start = cell.source_category() == polygon::SOURCE_CATEGORY_SEGMENT_START_POINT;
    return start ? Segment{low, low} : Segment{high, high};
  }

  static double clearanceAt(const Segment& border, Point point) {
    return package::distanceToSegment(border.a, border.b, point);
  }

  // The points between the ends of an edge; of a parabola, points on it.
  std::vector<Point> between(const Diagram::edge_type& edge, Point from, Point to) const {
    std::vector<Point> points;
    const auto count =
        static_cast<int>(std::clamp(std::ceil(package::distance(from, to) / step), 1.0, 10'000.0));
    if (edge.is_linear()) {
      for (int i = 1; i < count; ++i)
        points.push_back(from + (to - from) * (static_cast<double>(i) / count));
      return points;
    }
    const bool focusFirst = edge.cell()->contains_point();
    const Point focus = borderOf(focusFirst ? *edge.cell() : *edge.twin()->cell()).a;
    const Segment border = borderOf(focusFirst ? *edge.twin()->cell() : *edge.cell());
    const double length = package::distance(border.a, border.b);
    const Point along = (border.b - border.a) * (1.0 / length);
    const Point across{-along.y, along.x};
    const double height = package::dot(focus - border.a, across);
    if (std::abs(height) < unit) return points;
    const double fromX = package::dot(from - focus, along);
    const double toX = package::dot(to - focus, along);
    const Point base = focus - across * height;
    for (int i = 1; i < count; ++i) {
      const double x = fromX + (toX - fromX) * i / count;
      points.push_back(base + along * x + across * ((x * x + height * height) / (2.0 * height)));
    }
    return points;
  }

  std::uint32_t addPoint(Point point, double clearance) {
    skeleton_.points.push_back(point);
    skeleton_.clearances.push_back(clearance);
    return static_cast<std::uint32_t>(skeleton_.points.size() - 1);
  }

  std::uint32_t addVertex(const Diagram::vertex_type& vertex, double clearance) {
    const auto index = static_cast<std::size_t>(&vertex - diagram_.vertices().data());
    if (clearance < leastClearance_) return none;
    if (atVertex_[index] == none) atVertex_[index] = addPoint(pointOf(vertex), clearance);
    return atVertex_[index];
  }

  void add(const Diagram::edge_type& edge) {
    const Point from = pointOf(*edge.vertex0());
    const Point to = pointOf(*edge.vertex1());
    if (!std::isfinite(from.x + from.y + to.x + to.y)) return;
    const std::vector<Point> inner = between(edge, from, to);
    if (!space_.contains(inner.empty() ? (from + to) * 0.5 : inner[inner.size() / 2])) return;
    const Segment border = borderOf(*edge.cell());
    std::uint32_t last = addVertex(*edge.vertex0(), clearanceAt(border, from));
    const auto link = [&](std::uint32_t next) {
      if (last != none && next != none && last != next) skeleton_.edges.emplace_back(last, next);
      last = next;
    };
    for (const Point point : inner) {
      const double clearance = clearanceAt(border, point);
      link(clearance < leastClearance_ ? none : addPoint(point, clearance));
    }
    link(addVertex(*edge.vertex1(), clearanceAt(border, to)));
  }

  Space space_;
  std::vector<Border> borders_;
  double leastClearance_;
  Diagram diagram_;
  std::vector<std::uint32_t> atVertex_;
  Skeleton skeleton_;
};

}  // namespace

std::vector<std::vector<std::uint32_t>> Skeleton::neighbors() const {
  std::vector<std::vector<std::uint32_t>> all(points.size());
  for (const auto& [from, to] : edges) {
    all[from].push_back(to);
    all[to].push_back(from);
  }
  return all;
}

// Borders may cross each other without the slight bends. Rounding repairs that.
Skeleton makeSkeleton(const Shape& shape, double leastClearance, double tolerance) {
  const Shape rounded = snapped(withoutSlightBends(shape, tolerance), unit);
  if (rounded.empty()) return {};
  return Maker(rounded, leastClearance).make();
}

}  // namespace orivanta::importer

#include "Apps/Import/Connectors/Piece.hpp"

#include <algorithm>
#include <array>
#include <cmath>

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

namespace {

using package::dot;

constexpr double step = 0.2;                      // between the points of a border that are tested
constexpr std::array probes = {0.15, 0.35, 0.6};  // meters beyond the border
constexpr double probesFar = 8.0;

struct BorderPoint {
  Point position;
  Point outward;
  double length = 0.0;
};

const Polygon& largest(const Area& area) {
  return *std::max_element(area.shape.begin(), area.shape.end(),
                           [](const Polygon& a, const Polygon& b) {
                             return package::signedArea(a.outer) < package::signedArea(b.outer);
                           });
}

std::vector<BorderPoint> borderOf(const Piece& piece) {
  std::vector<BorderPoint> points;
  for (const Polygon& polygon : piece.shape)
    for (std::size_t i = 0; i < polygon.outer.size(); ++i) {
      const Point a = polygon.outer[i];
      const Point way = polygon.outer[(i + 1) % polygon.outer.size()] - a;
      const double length = package::length(way);
      if (length < 1e-3) continue;
      const int count = std::max(1, static_cast<int>(std::lround(length / step)));
      for (int k = 0; k < count; ++k)
        points.push_back(
            {a + way * ((k + 0.5) / count), Point{way.y, -way.x} * (1.0 / length), length / count});
    }
  return points;
}

Side sideOf(const OrientedBox& box, Point outward) {
  const double along = dot(outward, box.along);
  const double across = dot(outward, box.across());
  if (std::abs(along) >= std::abs(across)) return along > 0.0 ? Side::end : Side::start;
  return across > 0.0 ? Side::left : Side::right;
}

// The middle of the points if it is on the border, or else the point that is nearest to it.
Point middleOf(const std::vector<BorderPoint>& points) {
  Point sum;
  for (const BorderPoint& point : points) sum = sum + point.position;
  const Point mean = sum * (1.0 / static_cast<double>(points.size()));
  const Point nearest = std::min_element(points.begin(), points.end(),
                                         [&](const BorderPoint& a, const BorderPoint& b) {
                                           return package::distance(a.position, mean) <
                                                  package::distance(b.position, mean);
                                         })
                            ->position;
  return package::distance(nearest, mean) < 0.6 * step ? mean : nearest;
}

std::optional<ConnectorKind> kindOf(AreaKind kind) {
  switch (kind) {
    case AreaKind::stairs:
      return ConnectorKind::stairs;
    case AreaKind::escalator:
      return ConnectorKind::escalator;
    case AreaKind::elevator:
      return ConnectorKind::elevator;
    case AreaKind::movingWalkway:
      return ConnectorKind::movingWalkway;
    default:
      return std::nullopt;
  }
}

}  // namespace

Side opposite(Side side) {
  switch (side) {
    case Side::start:
      return Side::end;
    case Side::end:
      return Side::start;
    case Side::left:
      return Side::right;
    case Side::right:
      break;
  }
  return Side::left;
}

std::optional<Piece> pieceOf(const Area& area) {
  const auto kind = kindOf(area.kind);
  if (!kind || area.shape.empty() || largest(area).outer.size() < 3) return std::nullopt;
  Piece piece;
  piece.area = &area;
  piece.shape = area.shape;
  piece.kind = *kind;
  piece.level = area.level;
  piece.box = orientedBox(largest(area).outer);
  piece.source = area.source.empty() ? area.id : area.source;
  piece.names = area.names;
  piece.access = area.access;
  piece.wheelchair = area.wheelchair;
  piece.direction = area.direction;
  piece.stepEdges = area.stepEdges;
  return piece;
}

bool continues(const Piece& first, const Piece& second) {
  constexpr double gap = 0.5;
  constexpr double sideways = 0.4;
  constexpr double widths = 0.7;
  if (first.kind != second.kind || first.kind == ConnectorKind::elevator ||
      first.level != second.level || first.area == nullptr || second.area == nullptr ||
      std::abs(dot(first.box.along, second.box.along)) < 0.97 ||
      std::min(first.box.width, second.box.width) <
          widths * std::max(first.box.width, second.box.width))
    return false;
  const Point way = second.box.center - first.box.center;
  const double between =
      std::abs(dot(way, first.box.along)) - (first.box.length + second.box.length) / 2.0;
  return std::abs(dot(way, first.box.across())) < sideways && std::abs(between) < gap;
}

void append(Piece& piece, const Piece& other) {
  piece.shape = joined(std::move(piece.shape), other.shape);
  Outline corners;
  for (const Polygon& polygon : piece.shape)
    corners.insert(corners.end(), polygon.outer.begin(), polygon.outer.end());
  piece.box = orientedBox(corners);
  if (piece.names.name.empty()) piece.names = other.names;
  piece.access = std::max(piece.access, other.access);
  piece.stepEdges.insert(piece.stepEdges.end(), other.stepEdges.begin(), other.stepEdges.end());
  if (piece.wheelchair == Wheelchair::unknown) piece.wheelchair = other.wheelchair;
  if (piece.direction == Direction::unknown) piece.direction = other.direction;
}

std::vector<Contact> contactsOf(const Piece& piece, const Space& space) {
  std::array<std::vector<BorderPoint>, 4> sides;
  for (const BorderPoint& point : borderOf(piece))
    if (std::any_of(probes.begin(), probes.end(), [&](double probe) {
          return space.contains(point.position + point.outward * probe);
        }))
      sides[static_cast<std::size_t>(sideOf(piece.box, point.outward))].push_back(point);
  std::vector<Contact> contacts;
  for (std::size_t i = 0; i < sides.size(); ++i) {
    if (sides[i].empty()) continue;
    Contact contact;
    contact.side = static_cast<Side>(i);
    contact.position = middleOf(sides[i]);
    for (const BorderPoint& point : sides[i]) contact.length += point.length;
    contacts.push_back(contact);
  }
  return contacts;
}

double shareWithin(const Piece& piece, const Space& space) {
  if (piece.area == nullptr) return space.contains(piece.box.center) ? 1.0 : 0.0;
  constexpr int grid = 6;
  int all = 0;
  int within = 0;
  for (int row = 0; row < grid; ++row)
    for (int column = 0; column < grid; ++column) {
      const Point point = piece.box.center +
                          piece.box.along * (piece.box.length * ((column + 0.5) / grid - 0.5)) +
                          piece.box.across() * (piece.box.width * ((row + 0.5) / grid - 0.5));
      if (!contains(piece.shape, point)) continue;
      ++all;
      if (space.contains(point)) ++within;
    }
  return all == 0 ? 0.0 : static_cast<double>(within) / all;
}

Contact contactAt(const Piece& piece, const Door& door) {
  Contact contact;
  contact.position = door.position;
  contact.length = door.width.value_or(1.0);
  contact.door = true;
  contact.leaf = door.kind != DoorKind::passage;
  const Point away = door.position - piece.box.center;
  // As if the box were a square, so that a door in a long side belongs to it.
  contact.side = sideOf(
      piece.box,
      piece.box.along * (dot(away, piece.box.along) / std::max(piece.box.length, 0.01)) +
          piece.box.across() * (dot(away, piece.box.across()) / std::max(piece.box.width, 0.01)));
  return contact;
}

Point nearestTo(const Piece& piece, const Space& space) {
  Point best = piece.area == nullptr ? piece.box.center : piece.box.end(-1.0);
  double nearest = probesFar;
  for (const BorderPoint& point : borderOf(piece)) {
    const double away =
        space.contains(point.position) ? 0.0 : space.clearance(point.position, probesFar);
    if (away >= nearest) continue;
    nearest = away;
    best = point.position;
  }
  return best;
}

}  // namespace orivanta::importer

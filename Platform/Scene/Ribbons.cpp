#include "Platform/Scene/Ribbons.hpp"

#include <cmath>
#include <cstddef>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>

#include "Platform/Scene/RibbonCorners.hpp"

namespace orivanta::scene {

using graphics::Vector3;

namespace {

// At sharper corners, edges are not joined. Lines with round ends get them there, too: a miter that
// is longer than the shader allows would be a point.
constexpr float sharpestTurn = -0.9F;         // cosine
constexpr float sharpestRoundTurn = -0.766F;  // 140 degrees

glm::vec2 levelDirection(const Vector3& from, const Vector3& to) {
  const glm::vec2 way(to.x - from.x, to.y - from.y);
  const float length = glm::length(way);
  return length > 0 ? way / length : glm::vec2(1, 0);
}

std::int16_t shortOf(float share) { return static_cast<std::int16_t>(std::lround(share * 32767)); }
std::int8_t byteOf(float share) { return static_cast<std::int8_t>(std::lround(share * 127)); }

}  // namespace

class Ribbons::Builder {
 public:
  explicit Builder(Ribbons& ribbons) : ribbons_(ribbons) {}

  void add(const Line& line, float mergeWithin) {
    const std::vector<RibbonCorner> corners = ribbonCorners(line, mergeWithin);
    if (corners.size() < 2) return;
    Part part{count(ribbons_.indices_), 0, {}};
    for (const RibbonCorner& corner : corners) part.box.add(corner.point);
    addEdges(corners, line);
    part.indexCount = count(ribbons_.indices_) - part.firstIndex;
    ribbons_.boundingBox_.add(part.box);
    ribbons_.parts_.push_back(part);
  }

 private:
  // The directions of the edges before and after a corner.
  struct Directions {
    glm::vec2 before;
    glm::vec2 after;
  };
  // Where a vertex lies in the ribbon; see Vertex.
  struct Place {
    float side;
    std::int8_t end;
    float across;
  };

  template <class Values>
  static std::uint32_t count(const Values& values) {
    return static_cast<std::uint32_t>(values.size());
  }

  void addEdges(std::span<const RibbonCorner> corners, const Line& line) {
    std::vector<glm::vec2> directions;
    for (std::size_t i = 0; i + 1 < corners.size(); ++i)
      directions.push_back(levelDirection(corners[i].point, corners[i + 1].point));
    const bool isRing = line.isClosed && corners.front().point == corners.back().point;
    const std::size_t last = directions.size() - 1;
    const float sharpest = line.hasRoundEnds ? sharpestRoundTurn : sharpestTurn;
    const auto joins = [&](std::size_t a, std::size_t b) {
      return (isRing || a < b) && glm::dot(directions[a], directions[b]) >= sharpest;
    };
    for (std::size_t i = 0; i <= last; ++i) {
      const glm::vec2 own = directions[i];
      const std::size_t previous = i > 0 ? i - 1 : last;
      const std::size_t next = i < last ? i + 1 : 0;
      const bool joinsPrevious = joins(previous, i);
      const bool joinsNext = joins(i, next);
      const std::uint8_t color = corners[i].color;
      if (!joinsPrevious && line.hasRoundEnds) addCap(corners[i], own, -2, color);
      if (!joinsNext && line.hasRoundEnds) addCap(corners[i + 1], own, 2, color);
      const std::uint32_t first = count(ribbons_.vertices_);
      addPair(corners[i], {joinsPrevious ? directions[previous] : own, own}, color, -1);
      addPair(corners[i + 1], {own, joinsNext ? directions[next] : own}, color, 1);
      ribbons_.indices_.insert(ribbons_.indices_.end(),
                               {first, first + 1, first + 2, first + 2, first + 1, first + 3});
    }
  }

  void addPair(const RibbonCorner& corner, const Directions& directions, std::uint8_t color,
               std::int8_t end) {
    addVertex(corner, directions, color, {1, end, 1});
    addVertex(corner, directions, color, {-1, end, -1});
  }

  // Half a disc at an end.
  void addCap(const RibbonCorner& corner, glm::vec2 direction, std::int8_t end,
              std::uint8_t color) {
    constexpr std::uint32_t sectors = 6;
    const std::uint32_t center = count(ribbons_.vertices_);
    addVertex(corner, {direction, direction}, color, {0, end, 0});
    for (std::uint32_t i = 0; i <= sectors; ++i) {
      const float angle = 3.14159265F * static_cast<float>(i) / sectors;
      addVertex(corner, {direction, direction}, color, {std::cos(angle), end, 1});
      if (i > 0)
        ribbons_.indices_.insert(ribbons_.indices_.end(), {center, center + i, center + i + 1});
    }
  }

  void addVertex(const RibbonCorner& corner, const Directions& directions, std::uint8_t color,
                 const Place& place) {
    const Vector3& point = corner.point;
    ribbons_.vertices_.push_back({{point.x, point.y, point.z},
                                  {shortOf(directions.before.x), shortOf(directions.before.y)},
                                  {shortOf(directions.after.x), shortOf(directions.after.y)},
                                  corner.distance,
                                  color,
                                  byteOf(place.side),
                                  place.end,
                                  byteOf(place.across)});
  }

  Ribbons& ribbons_;
};

std::shared_ptr<const Ribbons> Ribbons::make(std::span<const Line> lines, double mergeWithin) {
  const std::shared_ptr<Ribbons> ribbons(new Ribbons);
  Builder builder(*ribbons);
  for (const Line& line : lines) builder.add(line, static_cast<float>(mergeWithin));
  return ribbons;
}

}  // namespace orivanta::scene

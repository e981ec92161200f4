// Lines of constant width on the screen, such as the outlines of rooms or a route.
// Public header.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

/// The color and the width of some edges of ribbons.
struct RibbonColor {
  graphics::Color color;  ///< drawn without light; an alpha of 0 draws nothing
  float width = 1.0F;     ///< points, at most 4,095

  friend bool operator==(const RibbonColor&, const RibbonColor&) = default;
};

/// How ribbons are drawn as a route: with a casing, arrows and a passed part, and translucent where
/// something hides them. Lengths along the route are in the units of `Ribbons::Vertex::distance`.
struct RouteRibbon {
  graphics::Color casing{};   ///< the color of both margins and of the arrows
  graphics::Color passed{};   ///< the color of the passed part
  float casingWidth = 1.5F;   ///< points on each side, outside of the line
  float passedTo = -1e30F;    ///< the distance up to which the route is passed; nothing at first
  float arrowSpacing = 0.0F;  ///< from one arrow to the next; 0 for no arrows
  float arrowPhase = 0.0F;    ///< the distance of one arrow
  float hiddenAlpha = 0.35F;  ///< opacity of the parts behind opaque shapes, from 0 to 1

  friend bool operator==(const RouteRibbon&, const RouteRibbon&) = default;
};

/// How ribbons are drawn.
struct RibbonLook {
  std::vector<RibbonColor> colors{};   ///< by color index; at most 256 are used
  std::optional<RouteRibbon> route{};  ///< nothing for plain lines

  friend bool operator==(const RibbonLook&, const RibbonLook&) = default;
};

/// Lines that the renderer widens in the level plane (x, y) to a width in points. They are attached
/// to a node and lie in its space. Immutable and independent of OpenGL. Can be made and used on any
/// thread.
class ORIVANTA_API Ribbons {
 public:
  /// A line through points.
  struct Line {
    std::vector<graphics::Vector3> points{};  ///< points that are not finite are skipped
    std::vector<std::uint8_t> colors{};       ///< color index of each edge; missing ones are 0
    bool isClosed = false;      ///< whether an edge joins the last and the first point
    bool hasRoundEnds = false;  ///< also at corners of less than 40 degrees; otherwise cut
    float distance = 0.0F;      ///< at the first point; grows by the length of the line
  };

  /// The layout in GPU memory. Each edge has four vertices: two at each end.
  struct Vertex {
    float position[3];       ///< of the corner, before the line is widened
    std::int16_t before[2];  ///< level direction of the edge before the corner; 32767 is 1
    std::int16_t after[2];   ///< level direction of the edge after the corner; 32767 is 1
    float distance;          ///< along the line
    std::uint8_t color;      ///< color index
    std::int8_t side;        ///< the share of half the width to the left; 127 is 1
    std::int8_t end;         ///< -1 and 1: start and end of an edge; -2 and 2: round ends
    std::int8_t across;      ///< 0 in the middle of the ribbon, 127 or -127 at its borders
  };

  /// The triangles of one line.
  struct Part {
    std::uint32_t firstIndex;  ///< consecutive parts have no gaps
    std::uint32_t indexCount;  ///< a multiple of 3
    graphics::Box box;         ///< of the points
  };

  /// Makes ribbons. Points that lie within `mergeWithin` units of the straight line between their
  /// neighbors are left out if the color does not change there. Edges that are not longer than that
  /// in the level plane are left out as well. Lines without edges have no part.
  static std::shared_ptr<const Ribbons> make(std::span<const Line> lines, double mergeWithin);

  std::span<const Vertex> vertices() const { return vertices_; }       ///< of all lines
  std::span<const std::uint32_t> indices() const { return indices_; }  ///< three per triangle
  std::span<const Part> parts() const { return parts_; }             ///< in the order of the lines
  const graphics::Box& boundingBox() const { return boundingBox_; }  ///< of all points

 private:
  class Builder;

  Ribbons() = default;

  std::vector<Vertex> vertices_;
  std::vector<std::uint32_t> indices_;
  std::vector<Part> parts_;
  graphics::Box boundingBox_;
};

}  // namespace orivanta::scene

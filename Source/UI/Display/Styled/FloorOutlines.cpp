#include "Source/UI/Display/Styled/FloorOutlines.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Rigid.hpp"
#include "Source/UI/Display/Styled/OutlineChains.hpp"
#include "Source/UI/Display/Styled/OutlineColors.hpp"
#include "Source/UI/Display/Styled/ShapeEdges.hpp"
#include "Source/UI/Display/Styled/TopSurfaces.hpp"

namespace orivanta {

using graphics::Vector3;

namespace {

constexpr double beyondEdge = 0.15;   // meters
constexpr double longestPiece = 2.0;  // meters
constexpr double mostPieces = 64;     // of an edge
constexpr double mergeWithin = 0.02;  // meters
constexpr double leastShareOfWalls = 0.25;

// Limits the time for models that no floor has. Some outlines are missing then.
constexpr std::size_t mostExamined = 20'000'000;

bool facesUp(const LabelTriangle& corners) {
  const auto& [a, b, c] = corners;
  const double size =
      (double{b.x} - a.x) * (double{c.y} - a.y) - (double{c.x} - a.x) * (double{b.y} - a.y);
  return size > 0 && std::isfinite(size) && std::isfinite(a.z + b.z + c.z);
}

// The faces of all shapes with a surface, in the order of the shapes.
class Faces {
 public:
  explicit Faces(std::span<const OutlinedShape> shapes) {
    for (std::uint32_t i = 0; i < shapes.size(); ++i) {
      firsts_.push_back(all.size());
      if (shapes[i].geometry && outlineSurface::of(shapes[i].role)) add(shapes[i], i);
    }
    firsts_.push_back(all.size());
  }

  std::vector<LabelTriangle> of(std::size_t shape) const {
    std::vector<LabelTriangle> triangles;
    for (std::size_t i = firsts_[shape]; i < firsts_[shape + 1]; ++i)
      triangles.push_back(all[i].corners);
    return triangles;
  }

  std::vector<TopFace> all;

 private:
  void add(const OutlinedShape& shape, std::uint32_t number) {
    const scene::GeometrySource* const source = shape.geometry->source(scene::Semantic::vertex);
    if (source == nullptr) return;
    for (const scene::GeometryElement& element : shape.geometry->elements())
      for (std::size_t i = 0; i + 2 < element.indexCount(); i += 3) {
        TopFace face{{}, number};
        for (std::size_t corner = 0; corner < 3; ++corner)
          face.corners[corner] =
              scene::transformPoint(shape.toFloor, source->vector(element.index(i + corner)));
        if (facesUp(face.corners)) all.push_back(face);
      }
  }

  std::vector<std::size_t> firsts_;
};

// Finds the outlines of one shape after the other.
class Outlines {
 public:
  Outlines(std::span<const OutlinedShape> shapes, double unitsPerMeter)
      : shapes_(shapes),
        units_(unitsPerMeter),
        faces_(shapes),
        surfaces_(faces_.all, longestPiece * units_) {}

  std::vector<scene::Ribbons::Line> lines() {
    std::vector<scene::Ribbons::Line> lines;
    for (std::uint32_t i = 0; i < shapes_.size(); ++i) {
      const auto surface = outlineSurface::of(shapes_[i].role);
      if (!surface) continue;
      const ShapeEdges edges = shapeEdges(faces_.of(i));
      const Pieces above = piecesOf(edges.above, i, *surface);
      const Pieces main = piecesOf(edges.main, i, *surface);
      const bool hasWalls =
          !above.pieces.empty() && above.length >= main.length * leastShareOfWalls;
      auto chains = chainPieces(hasWalls ? above.pieces : main.pieces);
      lines.insert(lines.end(), std::make_move_iterator(chains.begin()),
                   std::make_move_iterator(chains.end()));
    }
    return lines;
  }

 private:
  struct Pieces {
    std::vector<OutlinePiece> pieces;
    double length = 0;
  };

  Pieces piecesOf(std::span<const ShapeEdge> edges, std::uint32_t shape, OutlineSurface surface) {
    Pieces found;
    for (const auto& [from, to] : edges) {
      const double length = std::hypot(to.x - from.x, to.y - from.y);
      if (!(length > 0)) continue;
      const double count = std::clamp(std::ceil(length / (longestPiece * units_)), 1.0, mostPieces);
      Vector3 last = from;
      for (double i = 1; i <= count; ++i) {
        const Vector3 next = i == count ? to : from + static_cast<float>(i / count) * (to - from);
        if (const auto color = colorOf({last, next}, shape, surface)) {
          found.pieces.push_back({last, next, *color});
          found.length += length / count;
        }
        last = next;
      }
    }
    return found;
  }

  // The color index of an edge, or nothing if it is not drawn.
  std::optional<std::uint8_t> colorOf(const ShapeEdge& edge, std::uint32_t shape,
                                      OutlineSurface surface) {
    if (examined_ > mostExamined) return std::nullopt;
    const double x = double{edge.to.x} - edge.from.x;
    const double y = double{edge.to.y} - edge.from.y;
    const double share = beyondEdge * units_ / std::hypot(x, y);
    const auto seen = surfaces_.at({(double{edge.from.x} + edge.to.x) / 2 + y * share,
                                    (double{edge.from.y} + edge.to.y) / 2 - x * share},
                                   shape);
    examined_ += seen.examined + 1;
    if (seen.isOwn) return std::nullopt;
    const OutlineSurface other =
        seen.other ? *outlineSurface::of(shapes_[*seen.other].role) : outlineSurface::backdrop;
    const bool isDrawn = outlineSurface::isPlace(surface) ||
                         (!outlineSurface::isPlace(other) && other != surface &&
                          (surface != outlineSurface::slab || other == outlineSurface::backdrop));
    return isDrawn ? std::optional(outlineIndex(surface, other)) : std::nullopt;
  }

  std::span<const OutlinedShape> shapes_;
  double units_;
  Faces faces_;
  TopSurfaces surfaces_;
  std::size_t examined_ = 0;
};

}  // namespace

std::vector<OutlinedShape> outlinedShapes(const scene::Node& floor,
                                          std::span<const ShapeRole> roles) {
  const graphics::Transaction transaction;
  std::vector<OutlinedShape> shapes;
  const auto& children = floor.children(transaction);
  for (std::size_t i = 0; i < std::min(children.size(), roles.size()); ++i)
    shapes.push_back({children[i]->geometry(), children[i]->transform(), roles[i]});
  return shapes;
}

std::shared_ptr<const scene::Ribbons> makeOutlines(std::span<const OutlinedShape> shapes,
                                                   double unitsPerMeter) {
  return scene::Ribbons::make(Outlines(shapes, unitsPerMeter).lines(), mergeWithin * unitsPerMeter);
}

}  // namespace orivanta

// What is seen from above at a point of a floor.
// Private header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Graphics/Vector.hpp"
#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// A triangle that faces up, and the number of its shape.
struct TopFace {
  LabelTriangle corners;
  std::uint32_t shape;
};

/// A grid of triangles. Any thread. Refers to the faces.
class TopSurfaces {
 public:
  /// `least`: the least width of a cell, in the unit of the faces.
  TopSurfaces(std::span<const TopFace> faces, double least);

  /// What lies at a point.
  struct Seen {
    bool isOwn = false;                  ///< whether a face of the shape itself lies there
    std::optional<std::uint32_t> other;  ///< the highest other shape; the last one of equals
    std::size_t examined = 0;            ///< how many faces were examined
  };
  Seen at(const graphics::Point& point, std::uint32_t shape) const;

 private:
  template <class Visit>
  void visitCells(const TopFace& face, const Visit& visit) const;

  std::span<const TopFace> faces_;
  double left_ = 0;
  double bottom_ = 0;
  double cell_ = 1;
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::vector<std::uint32_t> firsts_;   // of each cell, in `entries_`; and the end of the last one
  std::vector<std::uint32_t> entries_;  // indices of faces
};

}  // namespace orivanta

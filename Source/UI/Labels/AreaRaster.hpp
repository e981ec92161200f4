// A raster of the areas of a floor. It answers whether a name would cover other rooms.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// Areas of a floor with the labels that they belong to, in up to 1024 by 1024 cells. Any thread.
class ORIVANTA_API AreaRaster {
 public:
  /// The owner of areas that belong to no label.
  static constexpr std::uint32_t nobody = UINT32_MAX - 1;

  /// Draws the areas; later ones cover earlier ones. `owners` has one element for each area: the
  /// index of its label, or `nobody`.
  AreaRaster(std::span<const LabelArea> areas, std::span<const std::uint32_t> owners);

  /// Returns the share (0 to 1) of a quadrilateral that lies on areas of others than `owner`. The
  /// corners are in scene units, in order around it. It is found at 24 points.
  double shareOnOthers(const std::array<graphics::Point, 4>& corners, std::uint32_t owner) const;

 private:
  void draw(const LabelArea& area, std::uint32_t owner);
  std::uint32_t at(graphics::Point point) const;

  graphics::Rect bounds_;
  double cell_ = 1;  // scene units
  std::size_t columns_ = 0;
  std::size_t rows_ = 0;
  std::vector<std::uint32_t> cells_;
  std::vector<std::vector<double>> crossings_;  // of each row; empty after the constructor
};

}  // namespace orivanta

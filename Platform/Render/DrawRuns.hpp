// Groups the parts of a mesh into few draw calls.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "Platform/Graphics/Vector.hpp"

namespace orivanta::render {

/// A range of a mesh's indices. The parts of a mesh are consecutive, without gaps, and sorted by
/// layer from 0.
struct MeshPart {
  std::uint32_t firstIndex;
  std::uint32_t indexCount;
  graphics::Box box;       ///< in the mesh's space
  bool isShell = false;    ///< see scene::isShell
  std::uint8_t layer = 0;  ///< see scene::findLayers
};

struct Run {
  std::uint32_t firstIndex;
  std::uint32_t indexCount;
  friend bool operator==(const Run&, const Run&) = default;
};

enum class Choice {
  leave,  ///< must not be drawn
  allow,  ///< may be drawn, but is not visible
  draw
};

/// Returns few runs that cover all parts to draw and none to leave. Short stretches of optional
/// parts are included where that saves a run.
std::vector<Run> chooseRuns(std::span<const MeshPart> parts,
                            const std::function<Choice(std::size_t part)>& choose);

/// The runs of parts whose back faces are never visible, and those of all others.
struct SidedRuns {
  std::vector<Run> fronts;
  std::vector<Run> bothSides;
  friend bool operator==(const SidedRuns&, const SidedRuns&) = default;
};

/// The same for parts some of which can be drawn without back faces. If they alternate with the
/// others so often that too many runs would result, all are drawn with both sides.
SidedRuns chooseSidedRuns(std::span<const MeshPart> parts,
                          const std::function<Choice(std::size_t part)>& choose,
                          const std::function<bool(std::size_t part)>& isFrontEnough);

/// The view frustum of a camera, as six planes in the mesh's space.
class Frustum {
 public:
  /// `toClip` maps from the mesh's space to clip space.
  explicit Frustum(const graphics::Matrix4& toClip);

  /// Returns false only if the box is completely outside of one plane.
  bool sees(const graphics::Box& box) const;

  /// Whether the whole box is beyond the near plane.
  bool isBeyondNear(const graphics::Box& box) const;

 private:
  std::array<graphics::Vector4, 6> planes_;
};

}  // namespace orivanta::render

// Parts of a mesh gathered into few draws.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "Platform/Graphics/Vector.hpp"

namespace orivanta::render {

/// A run of a mesh's indices; runs of one mesh follow one another without gaps, by layers from 0
/// on.
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
  allow,  ///< need not be drawn: out of sight
  draw
};

/// Few runs that cover all parts to draw and none to leave. Short stretches of what need not be
/// drawn are drawn along where that saves a run.
std::vector<Run> chooseRuns(std::span<const MeshPart> parts,
                            const std::function<Choice(std::size_t part)>& choose);

/// How parts are drawn whose back does not show, and the others.
struct SidedRuns {
  std::vector<Run> fronts;
  std::vector<Run> bothSides;
  friend bool operator==(const SidedRuns&, const SidedRuns&) = default;
};

/// The same for parts of which some need be drawn from their front alone. Where they alternate with
/// the others so often that many runs came of it, all are drawn from both sides.
SidedRuns chooseSidedRuns(std::span<const MeshPart> parts,
                          const std::function<Choice(std::size_t part)>& choose,
                          const std::function<bool(std::size_t part)>& isFrontEnough);

/// What a camera sees, as six planes of the mesh's space.
class Frustum {
 public:
  /// `toClip`: from the mesh's space to clip space.
  explicit Frustum(const graphics::Matrix4& toClip);

  /// False only for a box that is wholly outside of one plane.
  bool sees(const graphics::Box& box) const;

  /// Whether no part of the box lies before the near plane.
  bool isBeyondNear(const graphics::Box& box) const;

 private:
  std::array<graphics::Vector4, 6> planes_;
};

}  // namespace orivanta::render

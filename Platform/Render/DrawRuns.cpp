#include "Platform/Render/DrawRuns.hpp"

#include <glm/matrix.hpp>

namespace orivanta::render {

namespace {

// So many triangles out of sight cost about as much as another call.
constexpr std::uint32_t longestDetour = 3 * 200;

}  // namespace

std::vector<Run> chooseRuns(std::span<const MeshPart> parts,
                            const std::function<Choice(std::size_t part)>& choose) {
  std::vector<Run> runs;
  bool joins = false;  // whether the last run may grow up to the part at hand
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const MeshPart& part = parts[i];
    if (part.indexCount == 0) continue;
    const Choice choice = choose(i);
    if (choice == Choice::leave) {
      joins = false;
    } else if (choice == Choice::draw) {
      const std::uint32_t end = part.firstIndex + part.indexCount;
      if (joins &&
          part.firstIndex <= runs.back().firstIndex + runs.back().indexCount + longestDetour)
        runs.back().indexCount = end - runs.back().firstIndex;
      else
        runs.push_back({part.firstIndex, part.indexCount});
      joins = true;
    }
  }
  return runs;
}

Frustum::Frustum(const graphics::Matrix4& toClip) {
  const graphics::Matrix4 rows = glm::transpose(toClip);
  for (glm::length_t axis = 0; axis < 3; ++axis) {
    const std::size_t place = std::size_t{2} * static_cast<std::size_t>(axis);
    planes_[place] = rows[3] + rows[axis];
    planes_[place + 1] = rows[3] - rows[axis];
  }
}

bool Frustum::sees(const graphics::Box& box) const {
  for (const auto& plane : planes_) {
    const float farthest = plane.w + plane.x * (plane.x > 0 ? box.max.x : box.min.x) +
                           plane.y * (plane.y > 0 ? box.max.y : box.min.y) +
                           plane.z * (plane.z > 0 ? box.max.z : box.min.z);
    if (farthest < 0) return false;
  }
  return true;
}

}  // namespace orivanta::render

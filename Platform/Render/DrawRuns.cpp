#include "Platform/Render/DrawRuns.hpp"

#include <glm/matrix.hpp>

namespace orivanta::render {

namespace {

// Drawing this many invisible triangles costs about as much as another draw call.
constexpr std::uint32_t longestDetour = 3 * 200;

}  // namespace

std::vector<Run> chooseRuns(std::span<const MeshPart> parts,
                            const std::function<Choice(std::size_t part)>& choose) {
  std::vector<Run> runs;
  bool joins = false;  // whether the current part may extend the last run
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

SidedRuns chooseSidedRuns(std::span<const MeshPart> parts,
                          const std::function<Choice(std::size_t part)>& choose,
                          const std::function<bool(std::size_t part)>& isFrontEnough) {
  constexpr std::size_t mostRuns = 64;
  const auto runsOf = [&](bool fronts) {
    return chooseRuns(parts, [&](std::size_t part) {
      return isFrontEnough(part) == fronts ? choose(part) : Choice::leave;
    });
  };
  SidedRuns runs{runsOf(true), runsOf(false)};
  if (runs.fronts.size() + runs.bothSides.size() > mostRuns && !runs.bothSides.empty())
    runs = {{}, chooseRuns(parts, choose)};
  return runs;
}

Frustum::Frustum(const graphics::Matrix4& toClip) {
  const graphics::Matrix4 rows = glm::transpose(toClip);
  for (std::size_t i = 0; i < planes_.size(); ++i) {
    const graphics::Vector4& axis = rows[static_cast<int>(i / 2)];
    planes_[i] = i % 2 == 0 ? rows[3] + axis : rows[3] - axis;
  }
}

bool Frustum::isBeyondNear(const graphics::Box& box) const {
  const graphics::Vector4& near = planes_[4];
  return near.w + near.x * (near.x > 0 ? box.min.x : box.max.x) +
             near.y * (near.y > 0 ? box.min.y : box.max.y) +
             near.z * (near.z > 0 ? box.min.z : box.max.z) >=
         0;
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

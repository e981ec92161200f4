// A mesh as it stands in a scene for one frame.
#pragma once

#include <span>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Render/Mesh.hpp"
#include "Platform/Render/PartLook.hpp"

namespace orivanta::render {

/// Refers to what the frame's drawing keeps.
struct SceneMesh {
  const Mesh* mesh;
  std::span<const PartLook> looks;  ///< one a part
  graphics::Matrix4 world;

  /// Layers by which all parts are raised. What is shown on a floor is raised like the floor's
  /// highest layer, so that it does not sink into it.
  int raised = 0;

  std::span<const MeshPart> parts() const { return mesh->parts(); }

  /// Of all parts, in the mesh's space.
  graphics::Box box() const {
    graphics::Box box;
    for (const MeshPart& part : parts()) box.add(part.box);
    return box;
  }
};

/// Around a box in another space.
graphics::Box transformed(const graphics::Box& box, const graphics::Matrix4& matrix);

}  // namespace orivanta::render

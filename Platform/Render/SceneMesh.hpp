// A mesh and its placement in a scene for one frame.
#pragma once

#include <span>

#include "Platform/Graphics/Vector.hpp"
#include "Platform/Render/Mesh.hpp"
#include "Platform/Render/PartLook.hpp"

namespace orivanta::render {

/// Refers to data that lives until the frame is drawn.
struct SceneMesh {
  const Mesh* mesh;
  std::span<const PartLook> looks;  ///< one per part
  graphics::Matrix4 world;

  /// The number of layers by which all parts are raised. Objects on a floor are raised like the
  /// floor's highest layer, so that it does not cover them.
  int raised = 0;

  std::span<const MeshPart> parts() const { return mesh->parts(); }

  /// The bounding box of all parts in the mesh's space.
  graphics::Box box() const {
    graphics::Box box;
    for (const MeshPart& part : parts()) box.add(part.box);
    return box;
  }
};

/// The bounding box of a box after a transform.
graphics::Box transformed(const graphics::Box& box, const graphics::Matrix4& matrix);

}  // namespace orivanta::render

// A copy of what a frame shows of a scene, so that the scene may change while it is drawn.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Render/PartLook.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::render {

/// The children of one node, drawn from one merged mesh; `looks` correspond to the batch's parts.
struct BatchInScene {
  std::shared_ptr<const scene::Batch> batch;
  graphics::Matrix4 world;
  std::vector<PartLook> looks;

  friend bool operator==(const BatchInScene&, const BatchInScene&) = default;
};

/// One element of a geometry whose node is not in a batch.
struct LoosePart {
  std::shared_ptr<const scene::Geometry> geometry;
  std::size_t element;
  graphics::Matrix4 world;
  PartLook look;

  friend bool operator==(const LoosePart&, const LoosePart&) = default;
};

struct RibbonsInScene {
  std::shared_ptr<const scene::Ribbons> ribbons;
  scene::RibbonLook look;
  graphics::Matrix4 world;
  std::uint16_t group = 0;  ///< see SceneSnapshot::groups

  friend bool operator==(const RibbonsInScene&, const RibbonsInScene&) = default;
};

struct LightInScene {
  scene::Light light;
  graphics::Matrix4 world;  ///< of the node

  friend bool operator==(const LightInScene&, const LightInScene&) = default;
};

/// In the scene's space. Equal snapshots produce equal images.
struct SceneSnapshot {
  std::shared_ptr<const scene::Scene> scene;  ///< null if nothing is visible
  graphics::Matrix4 view{1.0F};
  graphics::Matrix4 projection{1.0F};
  graphics::Color background = graphics::colors::clear;
  std::vector<BatchInScene> batches;
  std::vector<LoosePart> loose;
  std::vector<RibbonsInScene> ribbons;

  /// The opacities, below 1, of groups of opaque parts and ribbons that are blended as one. Group
  /// 1 is the first. They are drawn in this order, after all that belongs to group 0.
  std::vector<float> groups;
  double scale = 1.0;                ///< pixels per point
  std::vector<LightInScene> lights;  ///< empty for a scene that is fully lit

  friend bool operator==(const SceneSnapshot&, const SceneSnapshot&) = default;
};

}  // namespace orivanta::render

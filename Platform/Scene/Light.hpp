// A light that shines along the negative z axis of its node.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"

namespace orivanta::scene {

/// The type of a light.
enum class LightType {
  ambient,      ///< lights everything equally
  directional,  ///< lights everything from one direction
  spot          ///< lights a cone from the node's position
};

/// The properties of a light. Change them under a `graphics::Transaction` if a frame may be drawn
/// concurrently. Angles are in degrees and distances in scene units.
class ORIVANTA_API Light {
 public:
  LightType type = LightType::directional;          ///< the type of the light
  graphics::Color color = graphics::colors::white;  ///< linear: 0.5 is half the intensity of 1
  bool castsShadow = false;                         ///< whether nodes cast shadows in this light
  double shadowStrength = 1.0;                      ///< fraction of the light that shadows remove
  double spotInnerAngle = 0.0;                      ///< full light inside this cone
  double spotOuterAngle = 45.0;                     ///< no light outside of this cone
  double zFar = 100.0;                              ///< stored, but not used by the renderer

  friend bool operator==(const Light&, const Light&) = default;
};

}  // namespace orivanta::scene

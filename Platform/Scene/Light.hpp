// A light, shining along the negative z axis of its node.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"

namespace orivanta::scene {

/// Where the light of a light goes.
enum class LightType {
  ambient,      ///< everywhere alike
  directional,  ///< everywhere in one direction
  spot          ///< from the node into a cone
};

/// A plain value that its node owns by handle; change it under a `graphics::Transaction` while a
/// frame may be drawn. Angles are degrees, distances scene units.
class ORIVANTA_API Light {
 public:
  LightType type = LightType::directional;          ///< where the light goes
  graphics::Color color = graphics::colors::white;  ///< components are strengths: 0.5 is half a 1
  bool castsShadow = false;      ///< whether nodes keep the light from those behind them
  double spotInnerAngle = 0.0;   ///< full light inside this cone
  double spotOuterAngle = 45.0;  ///< no light outside of this one
  double zFar = 100.0;           ///< kept with the light; the renderer does not use it

  friend bool operator==(const Light&, const Light&) = default;
};

}  // namespace orivanta::scene

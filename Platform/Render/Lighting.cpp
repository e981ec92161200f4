#include "Platform/Render/Lighting.hpp"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>

namespace orivanta::render {

namespace {

using graphics::Vector3;
using graphics::Vector4;

bool castsShadow(const LightInScene& light) {
  return light.light.type == scene::LightType::directional && light.light.castsShadow;
}

// A cone is specified by its full opening angle.
float cosineAtEdge(double degrees) {
  return static_cast<float>(std::cos(glm::radians(std::clamp(degrees, 0.0, 360.0) / 2)));
}

}  // namespace

Lighting::Lighting(std::span<const LightInScene> lights, const graphics::Matrix4& view) {
  if (lights.empty()) ambient_ = Vector3(1.0F);
  const auto caster = std::find_if(lights.begin(), lights.end(), castsShadow);
  if (caster != lights.end()) {
    hasCaster_ = true;
    unshadowed_ = static_cast<float>(1.0 - std::clamp(caster->light.shadowStrength, 0.0, 1.0));
    caster_ = caster->world;
    add(*caster, view);
  }
  for (auto light = lights.begin(); light != lights.end(); ++light)
    if (light != caster) add(*light, view);
}

void Lighting::add(const LightInScene& light, const graphics::Matrix4& view) {
  const Vector3 color(light.light.color.red, light.light.color.green, light.light.color.blue);
  if (light.light.type == scene::LightType::ambient) {
    ambient_ += color;
    return;
  }
  if (count() == MeshProgram::mostLights) return;
  const graphics::Matrix4 toView = view * light.world;
  const Vector3 direction = glm::normalize(-Vector3(toView[2]));
  const bool isSpot = light.light.type == scene::LightType::spot;
  const float outer = cosineAtEdge(light.light.spotOuterAngle);
  const float inner = std::max(cosineAtEdge(light.light.spotInnerAngle), outer + 1e-4F);
  places_.push_back(isSpot ? toView[3] : Vector4(-direction, 0.0F));
  directions_.emplace_back(direction, outer);
  colors_.emplace_back(color, inner);
}

bool Lighting::isFarAway() const {
  return std::all_of(places_.begin(), places_.end(),
                     [](const Vector4& place) { return place.w == 0.0F; });
}

void Lighting::setUniforms(const MeshProgram& program) const {
  program.program.set(program.ambient, ambient_);
  program.program.set(program.unshadowed, unshadowed_);
  if (places_.empty()) return;
  glUniform4fv(program.lightPlaces, count(), &places_[0][0]);
  glUniform4fv(program.lightDirections, count(), &directions_[0][0]);
  glUniform4fv(program.lightColors, count(), &colors_[0][0]);
}

}  // namespace orivanta::render

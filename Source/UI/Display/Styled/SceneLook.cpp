#include "Source/UI/Display/Styled/SceneLook.hpp"

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

namespace {

// A level face receives 0.525 of the sun's light. Together with this, it is fully lit, and shows
// its color unchanged.
constexpr float ambientLight = 0.48F;

// The light of a level face in the shadow is 0.48 + 0.51 * 0.525 = 0.75.
constexpr double shadowStrength = 0.49;

std::shared_ptr<scene::Light> lightOf(const std::shared_ptr<scene::Node>& node) {
  return node ? node->light() : nullptr;
}

}  // namespace

void SceneLook::apply(MapView& view, const std::shared_ptr<scene::Node>& sun, const MapTheme& theme,
                      bool withLights) {
  const graphics::Transaction transaction;
  restore(view);
  view.sceneView->setBackgroundColor(
      background_.replace(view.sceneView->backgroundColor(), theme.colors.backdrop));
  if (!withLights) return;
  if (const auto light = lightOf(view.light)) {
    ambientLight_ = light;
    light->color = ambient_.replace(light->color, graphics::Color::fromWhite(ambientLight));
  }
  if (const auto light = lightOf(sun)) {
    sunLight_ = light;
    darken(*light);
  }
}

void SceneLook::restore(MapView& view) {
  const graphics::Transaction transaction;
  view.sceneView->setBackgroundColor(background_.restored(view.sceneView->backgroundColor()));
  if (const auto light = ambientLight_.lock()) light->color = ambient_.restored(light->color);
  if (const auto light = sunLight_.lock()) lighten(*light);
  sunLight_.reset();
}

void SceneLook::setShadows(double share) {
  if (share == shadows_) return;
  const graphics::Transaction transaction;
  shadows_ = share;
  const auto light = sunLight_.lock();
  if (!light) return;
  lighten(*light);
  darken(*light);
}

void SceneLook::darken(scene::Light& sun) {
  sun.shadowStrength = shadowStrength_.replace(sun.shadowStrength, shadowStrength * shadows_);
  sun.castsShadow = castsShadow_.replace(sun.castsShadow, sun.castsShadow && shadows_ > 0);
}

void SceneLook::lighten(scene::Light& sun) {
  sun.shadowStrength = shadowStrength_.restored(sun.shadowStrength);
  sun.castsShadow = castsShadow_.restored(sun.castsShadow);
}

}  // namespace orivanta

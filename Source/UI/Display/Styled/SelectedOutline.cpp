#include "Source/UI/Display/Styled/SelectedOutline.hpp"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Ribbons.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/FloorOutlines.hpp"
#include "Source/UI/Display/Styled/OutlineColors.hpp"
#include "Source/UI/Display/Styled/PlaceShapes.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr float width = 3.0F;  // points
constexpr float casingWidth = 1.5F;
constexpr float hiddenAlpha = 1.0F;        // blocks do not hide it
constexpr double usualUnitsPerMeter = 10;  // if the venue does not state its scale

scene::RibbonLook lookIn(const MapTheme& theme) {
  scene::RibbonLook look;
  look.colors.assign(outlineColors(theme).size(), {theme.colors.pin, width});
  look.route.emplace();
  look.route->casing = theme.colors.casing;
  look.route->casingWidth = casingWidth;
  look.route->hiddenAlpha = hiddenAlpha;
  return look;
}

}  // namespace

void SelectedOutline::show(const MapView& view, const Location& place, const MapTheme& theme) {
  const graphics::Transaction transaction;
  clear();
  const auto& floor = view.currentMap();
  const auto scene = view.sceneView->scene();
  if (!floor || !floor->mapObject || !scene) return;
  const std::set<std::string> names = shapeNamesOf(place);
  std::vector<OutlinedShape> shapes;
  if (!names.empty())
    for (const auto& shape : floor->mapObject->children(transaction))
      if (names.contains(shape->name().value_or("")))
        shapes.push_back(
            {shape->geometry(), floor->mapObject->transform() * shape->transform(), {}});
  if (shapes.empty()) return;
  const auto scale = guidance::unitsPerMeterOf(*view.venue);
  auto outline = makeOutlines(shapes, scale.value_or(usualUnitsPerMeter));
  node_ = scene::Node::make();
  node_->setRibbons(std::move(outline), lookIn(theme));
  scene->rootNode()->addChild(node_);
}

void SelectedOutline::clear() {
  if (const auto former = std::exchange(node_, nullptr)) former->removeFromParent();
}

}  // namespace orivanta

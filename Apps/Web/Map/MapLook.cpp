#include "Apps/Web/Map/MapLook.hpp"

#include <algorithm>

namespace orivanta::web {

namespace {

void read(const boost::json::object& object, const char* name, bool& value) {
  if (const auto* member = object.if_contains(name); member != nullptr && member->is_bool())
    value = member->get_bool();
}

void read(const boost::json::object& object, const char* name, std::string& value) {
  if (const auto* member = object.if_contains(name); member != nullptr && member->is_string())
    value = std::string(member->get_string());
}

std::shared_ptr<const MapTheme> themeOf(const MapLook& look) {
  const auto base = look.theme == "dark" ? MapTheme::dark() : MapTheme::light();
  if (look.textSize == 1 && !look.highContrast) return base;
  MapTheme theme = look.highContrast ? base->withHighContrast() : *base;
  if (look.textSize != 1) theme = theme.withTextScale(look.textSize);
  return std::make_shared<const MapTheme>(std::move(theme));
}

}  // namespace

void MapLook::update(const boost::json::object& object) {
  read(object, "theme", theme);
  read(object, "highContrast", highContrast);
  read(object, "labels", labels);
  read(object, "reducedMotion", reducedMotion);
  read(object, "still", still);
  read(object, "language", language);
  read(object, "compass", furniture.compass);
  read(object, "scaleBar", furniture.scaleBar);
  read(object, "attribution", furniture.attribution);
  if (const auto* member = object.if_contains("textSize"); member != nullptr && member->is_number())
    textSize = std::clamp(member->to_number<double>(), 0.5, 4.0);
}

void MapLook::apply(const MapLook& former, MapStyle& style, MapCamera& camera) const {
  if (theme != former.theme) style.setModelColors(theme == "plain");
  if (theme != former.theme || textSize != former.textSize || highContrast != former.highContrast)
    style.setTheme(themeOf(*this));
  if (language != former.language) style.setTexts(guidance::InterfaceTexts(language));
  if (labels != former.labels) style.setLabels(labels);
  if (still != former.still) style.setStill(still);
  if (reducedMotion != former.reducedMotion) {
    style.setReducedMotion(reducedMotion);
    camera.setReducedMotion(reducedMotion);
  }
  if (!(furniture == former.furniture)) style.setFurniture(furniture);
}

}  // namespace orivanta::web

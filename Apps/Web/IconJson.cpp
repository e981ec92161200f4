#include "Apps/Web/IconJson.hpp"

#include <fmt/format.h>

#include <boost/json/object.hpp>
#include <cmath>
#include <cstddef>
#include <string>

#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Style/MapIcons.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

std::string hexOf(const graphics::Color& color) {
  const auto byte = [](float share) { return std::lround(share * 255.0F); };
  return fmt::format("#{:02x}{:02x}{:02x}", byte(color.red), byte(color.green), byte(color.blue));
}

json::array partsOf(PlaceKind kind, const MapTheme& theme, IconState state) {
  json::array parts;
  for (const auto& part : iconPartsOf(kind, theme, state))
    parts.push_back(json::object{
        {"path", part.path}, {"color", hexOf(part.color)}, {"width", part.strokeWidth}});
  return parts;
}

}  // namespace

json::array iconsJson(bool isDark) {
  const auto theme = isDark ? MapTheme::dark() : MapTheme::light();
  json::array icons;
  for (std::size_t i = 0; i < placeKindCount; ++i) {
    const auto kind = static_cast<PlaceKind>(i);
    icons.push_back(json::object{{"kind", wordOf(kind)},
                                 {"parts", partsOf(kind, *theme, IconState::normal)},
                                 {"outOfOrder", partsOf(kind, *theme, IconState::outOfOrder)}});
  }
  return icons;
}

}  // namespace orivanta::web

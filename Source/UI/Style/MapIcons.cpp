#include "Source/UI/Style/MapIcons.hpp"

#include <span>
#include <string_view>
#include <vector>

#include "Source/UI/Style/IconPaths.hpp"

namespace orivanta {

using graphics::Color;
using graphics::DrawingPart;
using graphics::Image;

namespace {

constexpr std::string_view ring = "O0 0 12";
constexpr std::string_view disc = "O0 0 10.4";

// The bar of an icon that is out of order, and the space on its sides, which does not reach the
// ring.
struct Bar {
  std::string_view line;
  std::string_view space;
};
constexpr Bar falling{"M-7.4 -7.4 L7.4 7.4", "M-5.6 -5.6 L5.6 5.6"};
constexpr Bar rising{"M-7.4 7.4 L7.4 -7.4", "M-5.6 5.6 L5.6 -5.6"};
constexpr double barWidth = 1.7;
constexpr double barSpaceWidth = 3.8;

// A falling bar would cover most of these symbols.
const Bar& barOf(PlaceKind kind) {
  return kind == PlaceKind::phone || kind == PlaceKind::waiting ? rising : falling;
}

std::vector<DrawingPart> partsOf(std::span<const IconPath> paths, const Color& ground,
                                 const Color& symbol) {
  std::vector<DrawingPart> parts{{ring, symbol}, {disc, ground}};
  for (const IconPath& path : paths)
    parts.push_back({path.path, path.isCut ? ground : symbol, path.strokeWidth});
  return parts;
}

}  // namespace

std::vector<DrawingPart> iconPartsOf(PlaceKind kind, const MapTheme& theme, IconState state) {
  const bool works = state == IconState::normal;
  const Color ground = works ? theme.disc(kind) : theme.colors.iconOutOfOrder;
  auto parts = partsOf(iconPathsOf(kind), ground, theme.colors.iconSymbol);
  if (!works) {
    const Bar& bar = barOf(kind);
    parts.push_back({bar.space, ground, barSpaceWidth});
    parts.push_back({bar.line, theme.colors.iconSymbol, barWidth});
  }
  return parts;
}

std::shared_ptr<const Image> makeIconImage(PlaceKind kind, const MapTheme& theme, double points,
                                           double scale, IconState state) {
  return graphics::makeDrawingImage(iconPartsOf(kind, theme, state), iconUnits, points, scale);
}

std::shared_ptr<const Image> makeHereIconImage(const MapTheme& theme, double points, double scale) {
  return graphics::makeDrawingImage(
      partsOf(herePaths(), theme.colors.iconInfo, theme.colors.iconSymbol), iconUnits, points,
      scale);
}

std::shared_ptr<const Image> makeWalkIconImage(const MapTheme& theme, double points, double scale) {
  return graphics::makeDrawingImage(
      partsOf(walkPaths(), theme.disc(PlaceKind::other), theme.colors.iconSymbol), iconUnits,
      points, scale);
}

}  // namespace orivanta

// Reads the input as a theme, draws an icon with it, and looks for its words in the input.
#include <string_view>

#include "Fuzz/Fuzzer.hpp"
#include "Source/UI/Style/MapIcons.hpp"
#include "Source/UI/Style/MapThemeFile.hpp"

namespace orivanta {
namespace {

void checkTheme(std::string_view input) {
  const auto file = parseMapTheme(input);
  if (!file) {
    ORIVANTA_REQUIRE(!file.error().description.empty());
    return;
  }
  const MapTheme& theme = *file->theme;
  const ZoomStep step = theme.zoomStep(importanceOf(theme.words.kindOf(input)));
  ORIVANTA_REQUIRE(step.iconFrom >= 0 && step.nameFrom >= 0);
  ORIVANTA_REQUIRE(makeIconImage(PlaceKind::exit, theme, theme.sizes.icon, 1));
  for (const auto& fill : theme.colors.fills) {
    const auto outline = theme.outline(fill);
    ORIVANTA_REQUIRE(outline.red >= 0 && outline.red <= 1);
  }
}

}  // namespace
}  // namespace orivanta

ORIVANTA_FUZZER(Theme, orivanta::checkTheme)

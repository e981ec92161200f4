// Measures the built-in themes: contrasts and distances of their colors.
#include "Source/UI/Style/MapTheme.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "Source/UI/Style/ColorMeasures.hpp"

namespace orivanta {
namespace {

using graphics::Color;

constexpr int lastKind = static_cast<int>(FillKind::other);

struct Limits {
  ColorVision vision;
  double kinds;  // least distance of two kinds other than `FillKind::other`
  double other;  // least distance of `FillKind::other` to these
};

class ThemeColors : public testing::TestWithParam<bool> {
 protected:
  const MapTheme& theme = GetParam() ? *MapTheme::dark() : *MapTheme::light();

  // As a display shows it.
  static Color rounded(const Color& color) {
    const auto component = [](float value) { return std::round(value * 255) / 255; };
    return {component(color.red), component(color.green), component(color.blue), 1};
  }

  // The fills of all kinds except `other`, and the walkable floor.
  std::vector<Color> distinctFills() const {
    std::vector<Color> fills(theme.colors.fills.begin(), theme.colors.fills.end());
    fills[lastKind] = theme.colors.walkable;
    return fills;
  }
};

TEST_P(ThemeColors, KindsAreDistinct) {
  for (const Limits& limits : {Limits{ColorVision::normal, 10, 5},
                               {ColorVision::protanope, 7, 5},
                               {ColorVision::deuteranope, 7, 5},
                               {ColorVision::tritanope, 4.5, 4.5}}) {
    double kinds = 100;
    double other = 100;
    const Color receding = asSeen(theme.fill(FillKind::other), limits.vision);
    const auto fills = distinctFills();
    for (std::size_t i = 0; i < fills.size(); ++i) {
      const Color seen = asSeen(fills[i], limits.vision);
      other = std::min(other, distanceOf(seen, receding));
      for (std::size_t j = 0; j < i; ++j)
        kinds = std::min(kinds, distanceOf(seen, asSeen(fills[j], limits.vision)));
    }
    EXPECT_GE(kinds, limits.kinds) << static_cast<int>(limits.vision);
    EXPECT_GE(other, limits.other) << static_cast<int>(limits.vision);
  }
}

TEST_P(ThemeColors, EdgesAndTextsStandOut) {
  auto fills = distinctFills();
  fills.push_back(theme.fill(FillKind::other));
  for (const Color& first : fills) {
    EXPECT_GE(contrastOf(theme.colors.text, first), 4.5);
    for (const Color& second : fills) {
      const Color edge = rounded(theme.outlineBetween(first, second));
      EXPECT_GE(contrastOf(edge, first), 2.0);
      EXPECT_GE(contrastOf(edge, second), 2.0);
    }
  }
  EXPECT_NEAR(contrastOf(theme.walkableOutline(), theme.colors.walkable), 1.3, 0.01);
  EXPECT_GE(contrastOf(theme.colors.text, theme.colors.halo), 4.5);
}

TEST_P(ThemeColors, SymbolsStandOut) {
  const MapPalette& colors = theme.colors;
  for (const Color& mark : {colors.route, colors.passed, colors.pin, colors.start})
    EXPECT_GE(contrastOf(mark, colors.casing), 3);
  for (std::size_t i = 0; i < placeKindCount; ++i)
    EXPECT_GE(contrastOf(theme.disc(static_cast<PlaceKind>(i)), colors.iconSymbol), 4.5);
  EXPECT_GE(contrastOf(colors.iconOutOfOrder, colors.iconSymbol), 4.5);
}

TEST_P(ThemeColors, HighContrastSeparatesNamesEdgesAndMarks) {
  const MapTheme high = theme.withHighContrast();
  const MapPalette& colors = high.colors;
  std::vector<Color> fills(colors.fills.begin(), colors.fills.end());
  fills.push_back(colors.walkable);
  for (const Color& first : fills) {
    EXPECT_GE(contrastOf(colors.text, rounded(first)), 7);
    for (const Color& second : fills)
      EXPECT_GE(contrastOf(rounded(high.outlineBetween(first, second)), first), 4.4);
  }
  EXPECT_GE(contrastOf(high.walkableOutline(), colors.walkable), 2.99);
  for (const Color& mark : {colors.route, colors.pin, colors.start})
    EXPECT_GE(contrastOf(mark, colors.casing), 7);
  for (const PlaceKind kind : {PlaceKind::lift, PlaceKind::shop, PlaceKind::exit})
    EXPECT_GE(contrastOf(high.disc(kind), colors.iconSymbol), 7);
  EXPECT_GT(high.sizes.outline, theme.sizes.outline);
}

INSTANTIATE_TEST_SUITE_P(MapTheme, ThemeColors, testing::Bool(),
                         [](const auto& given) { return given.param ? "Dark" : "Light"; });

// Distances that another program computed from the same publications.
TEST(ColorMeasures, AgreeWithReferences) {
  const auto seen = [](unsigned first, unsigned second, ColorVision vision) {
    return distanceOf(asSeen(colorOfHex(first), vision), asSeen(colorOfHex(second), vision));
  };
  EXPECT_NEAR(seen(0x000000, 0xFFFFFF, ColorVision::normal), 100, 0.01);
  EXPECT_NEAR(seen(0xFBFAF7, 0xDCCFC8, ColorVision::normal), 10.4266, 0.001);
  EXPECT_NEAR(seen(0x2B4E52, 0x1F3749, ColorVision::normal), 12.0749, 0.001);
  EXPECT_NEAR(seen(0x62C1B8, 0xDCCFC8, ColorVision::protanope), 7.0936, 0.001);
  EXPECT_NEAR(seen(0x62C1B8, 0xE8A2BC, ColorVision::deuteranope), 7.1381, 0.001);
  EXPECT_NEAR(seen(0xE8A2BC, 0xE1A375, ColorVision::tritanope), 4.8079, 0.001);
  EXPECT_NEAR(contrastOf(colorOfHex(0x8395C6), colorOfHex(0x1B2230)), 5.3710, 0.001);
}

TEST(MapTheme, ShowsImportantPlacesFirst) {
  const MapTheme& theme = *MapTheme::light();
  double last = 0.0;
  for (const PlaceKind kind :
       {PlaceKind::platform, PlaceKind::lift, PlaceKind::food, PlaceKind::room}) {
    const ZoomStep step = theme.zoomStep(importanceOf(kind));
    EXPECT_GT(step.iconFrom, last);
    EXPECT_GT(step.nameFrom, step.iconFrom);
    last = step.iconFrom;
  }
  EXPECT_EQ(theme.zoomStep(-5), theme.zoom.back());
  EXPECT_GT(theme.nameSize(50), theme.nameSize(30));
  EXPECT_EQ(theme.withTextScale(2).nameSize(30), 2 * theme.nameSize(30));
  EXPECT_EQ(theme.withTextScale(2).sizes.icon, 1.5 * theme.sizes.icon);
}

}  // namespace
}  // namespace orivanta

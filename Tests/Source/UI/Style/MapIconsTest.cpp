#include "Source/UI/Style/MapIcons.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "Tests/Support/GoldenPicture.hpp"

namespace orivanta {
namespace {

using graphics::Color;
using graphics::Image;

// An opaque picture onto which icons are drawn.
class Sheet {
 public:
  Sheet(std::uint32_t width, std::uint32_t height)
      : width_(width), pixels_(std::size_t{4} * width * height, 255) {}

  void fill(std::uint32_t top, std::uint32_t bottom, const Color& color) {
    for (std::size_t i = std::size_t{top} * width_; i < std::size_t{bottom} * width_; ++i) {
      std::size_t at = 4 * i;
      for (const float part : {color.red, color.green, color.blue})
        pixels_[at++] = static_cast<std::uint8_t>(std::lround(255 * part));
    }
  }

  void draw(const Image& icon, std::uint32_t left, std::uint32_t top) {
    for (std::uint32_t y = 0; y < icon.height(); ++y)
      for (std::uint32_t x = 0; x < icon.width(); ++x) {
        const auto* const from = &icon.pixels()[(std::size_t{y} * icon.width() + x) * 4];
        auto* const to = &pixels_[(std::size_t{top + y} * width_ + left + x) * 4];
        for (std::size_t i = 0; i < 3; ++i)
          to[i] =
              static_cast<std::uint8_t>((from[i] * from[3] + to[i] * (255 - from[3]) + 127) / 255);
      }
  }

  std::shared_ptr<const Image> finish() && {
    const auto height = static_cast<std::uint32_t>(pixels_.size() / 4 / width_);
    return Image::make(width_, height, std::move(pixels_));
  }

 private:
  std::uint32_t width_;
  std::vector<std::uint8_t> pixels_;
};

constexpr std::uint32_t columns = 13;
constexpr std::uint32_t rows = 3;
constexpr std::uint32_t gap = 8;

// The sizes of the icons in a block, in points.
std::vector<std::uint32_t> sizesOf(IconState state) {
  if (state == IconState::outOfOrder) return {32, 16};
  return {64, 32, 16};
}

std::uint32_t heightOf(IconState state) {
  std::uint32_t height = 0;
  for (const std::uint32_t size : sizesOf(state)) height += rows * (size + gap);
  return height;
}

std::shared_ptr<const Image> iconAt(std::size_t index, const MapTheme& theme, double size,
                                    IconState state) {
  return index == placeKindCount
             ? makeHereIconImage(theme, size, 1)
             : makeIconImage(static_cast<PlaceKind>(index), theme, size, 1, state);
}

void drawBlock(Sheet& sheet, std::uint32_t top, const MapTheme& theme, IconState state) {
  sheet.fill(top, top + heightOf(state), theme.colors.walkable);
  for (const std::uint32_t size : sizesOf(state)) {
    for (std::size_t i = 0; i <= placeKindCount; ++i)
      sheet.draw(*iconAt(i, theme, size, state),
                 gap / 2 + static_cast<std::uint32_t>(i % columns) * (size + gap),
                 top + gap / 2 + static_cast<std::uint32_t>(i / columns) * (size + gap));
    top += rows * (size + gap);
  }
}

// All icons at three sizes: light, dark, and both out of order.
TEST(MapIcons, LookAsKept) {
  Sheet sheet(columns * (64 + gap),
              2 * heightOf(IconState::normal) + 2 * heightOf(IconState::outOfOrder));
  std::uint32_t top = 0;
  for (const IconState state : {IconState::normal, IconState::outOfOrder})
    for (const auto& theme : {MapTheme::light(), MapTheme::dark()}) {
      drawBlock(sheet, top, *theme, state);
      top += heightOf(state);
    }
  EXPECT_TRUE(test::looksAsKept(*std::move(sheet).finish(), "icons"));
}

TEST(MapIcons, HaveTheSizeThatIsAskedFor) {
  const auto icon = makeIconImage(PlaceKind::lift, *MapTheme::light(), 16, 2.5);
  ASSERT_TRUE(icon);
  EXPECT_EQ(icon->width(), 40U);
  EXPECT_EQ(icon->size(), (graphics::Size{16, 16}));
  for (const auto& [points, scale] : {std::pair{0.0, 1.0}, {16.0, 0.0}, {1e9, 1.0}, {NAN, 1.0}})
    EXPECT_FALSE(makeIconImage(PlaceKind::lift, *MapTheme::light(), points, scale));
}

// Two symbols that are equal would be the same icon for people who cannot see the color of the
// disc.
TEST(MapIcons, AllDiffer) {
  MapTheme theme = *MapTheme::light();
  for (Color* disc : {&theme.colors.iconLift, &theme.colors.iconWay, &theme.colors.iconGate,
                      &theme.colors.iconCare, &theme.colors.iconInfo})
    *disc = theme.colors.iconOther;
  // The least sum of all differences, in pixels that change from black to white.
  for (const auto& [state, least] :
       {std::pair{IconState::normal, 7.0}, {IconState::outOfOrder, 4.0}}) {
    std::vector<std::shared_ptr<const Image>> icons;
    for (std::size_t i = 0; i < placeKindCount; ++i) {
      icons.push_back(iconAt(i, theme, 16, state));
      for (std::size_t j = 0; j < i; ++j) {
        double difference = 0;
        for (std::size_t at = 0; at < icons[i]->pixels().size(); ++at)
          difference += std::abs(icons[i]->pixels()[at] - icons[j]->pixels()[at]) / 255.0 / 3;
        EXPECT_GT(difference, least)
            << wordOf(static_cast<PlaceKind>(i)) << ' ' << wordOf(static_cast<PlaceKind>(j));
      }
    }
  }
}

}  // namespace
}  // namespace orivanta

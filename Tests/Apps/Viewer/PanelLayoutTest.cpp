#include "Apps/Viewer/PanelLayout.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Theme.hpp"
#include "Source/UI/Style/ColorMeasures.hpp"

namespace orivanta::viewer {

namespace {

using graphics::Rect;
using graphics::Size;

constexpr Size sizes[] = {{390, 844},   {768, 1024}, {1080, 1920}, {1280, 800},
                          {3840, 2160}, {320, 568},  {844, 390},   {720, 480}};

bool overlap(const Rect& one, const Rect& other) {
  return one.minX() < other.maxX() - 0.01 && other.minX() < one.maxX() - 0.01 &&
         one.minY() < other.maxY() - 0.01 && other.minY() < one.maxY() - 0.01;
}

std::vector<Rect> visible(const PanelPlaces& places) {
  Rect sheet = places.sheet;  // with its handle
  if (places.handle.size.width > 0) {
    sheet.size.height += sheet.minY() - places.handle.minY();
    sheet.origin.y = places.handle.minY();
  }
  std::vector<Rect> rects;
  for (const Rect& rect :
       {places.wayBack, places.search, sheet, places.floors, places.buttons, places.attribution})
    if (rect.size.width > 0) rects.push_back(rect);
  return rects;
}

// Calls `check` with all cases and a description of each.
template <class Check>
void forAllCases(const Check& check) {
  for (const Size size : sizes)
    for (const double scale : {1.0, 1.5, 2.0})
      for (int bits = 0; bits < 16; ++bits)
        for (const double sheet : {0.0, 130.0, 5000.0}) {
          PanelMeasures in;
          in.window = size;
          in.textScale = scale * textGrowth(size);
          in.controlSide = theme::controlSize * (1 + in.textScale) / 2;
          in.barHeight = std::max(48.0, in.controlSide);
          in.isRightToLeft = (bits & 1) != 0;
          in.isSearchOpen = (bits & 2) != 0;
          in.wayBackWidth = (bits & 4) != 0 ? 2 * in.controlSide : 0;
          in.hasAttribution = true;
          in.floorCount = (bits & 8) != 0 ? 28 : 3;
          in.sheetHeight = sheet;
          const double width = in.controlSide + 8;
          in.buttons = {{width, 6 * in.controlSide + 8}, {width, 3 * in.controlSide + 8}};
          check(in, fmt::format("{}x{} at {}, case {}, sheet {}", size.width, size.height, scale,
                                bits, sheet));
        }
}

}  // namespace

TEST(PanelLayout, PanelsAreInsideTheWindowAndDoNotOverlap) {
  forAllCases([](const PanelMeasures& in, const std::string& name) {
    const PanelPlaces places = placePanels(in);
    const auto rects = visible(places);
    for (std::size_t i = 0; i < rects.size(); ++i) {
      EXPECT_GE(rects[i].minX(), 0) << name << " panel " << i;
      EXPECT_GE(rects[i].minY(), 0) << name << " panel " << i;
      EXPECT_LE(rects[i].maxX(), in.window.width) << name << " panel " << i;
      EXPECT_LE(rects[i].maxY(), in.window.height) << name << " panel " << i;
      for (std::size_t j = 0; j < i; ++j)
        EXPECT_FALSE(overlap(rects[i], rects[j])) << name << ": " << i << " and " << j;
    }
    EXPECT_GE(places.search.size.width, 2 * in.controlSide) << name;
    EXPECT_TRUE(places.floors.size.width == 0 || places.floors.size.height >= theme::controlSize)
        << name;
    EXPECT_LT(places.free.top + places.free.bottom, in.window.height) << name;
    EXPECT_LT(places.free.left + places.free.right, in.window.width) << name;
  });
}

TEST(PanelLayout, IsMirroredForTheOtherDirection) {
  forAllCases([](PanelMeasures in, const std::string& name) {
    if (hasBottomSheet(in.window)) return;
    in.isRightToLeft = false;
    const PanelPlaces left = placePanels(in);
    in.isRightToLeft = true;
    const PanelPlaces right = placePanels(in);
    EXPECT_NEAR(left.search.minX(), in.window.width - right.search.maxX(), 1e-6) << name;
    EXPECT_NEAR(left.sheet.minX() + left.sheet.size.width > 0 ? left.sheet.minX() : 0,
                right.sheet.size.width > 0 ? in.window.width - right.sheet.maxX() : 0, 1e-6)
        << name;
  });
}

TEST(PanelLayout, ASheetOpensFromItsMainLinesToTheSearchField) {
  struct Case {
    Size window;
    bool hasSheet;
    double halfMost;  // height of the contents
    double width;
  };
  for (const Case& each : {Case{{390, 844}, true, 396, 390}, Case{{768, 1024}, true, 486, 720},
                           Case{{1080, 1920}, true, 934, 720}, Case{{1280, 800}, false, 708, 346},
                           Case{{3840, 2160}, false, 2068, 660}}) {
    PanelMeasures in;
    in.window = each.window;
    in.textScale = textGrowth(each.window);
    EXPECT_EQ(hasBottomSheet(each.window), each.hasSheet);
    EXPECT_NEAR(sheetRoom(in, SheetStop::half).most, each.halfMost, 1);
    EXPECT_NEAR(sheetRoom(in, SheetStop::half).width, each.width, 1);
    if (!each.hasSheet) continue;
    EXPECT_EQ(sheetRoom(in, SheetStop::peek).most, 0);
    in.sheetHeight = sheetRoom(in, SheetStop::full).most;
    EXPECT_GE(placePanels(in).handle.minY() + theme::controlSize,
              placePanels(in).search.maxY() + handleStrip);
  }
}

// --- Looks

TEST(Theme, TextsAndSymbolsHaveContrastOnEverythingBehindThem) {
  using theme::Colors;
  using Member = graphics::Color Colors::*;
  struct Pair {
    Member front;
    std::vector<Member> backs;
    double least;
  };
  const Pair pairs[] = {
      {&Colors::ink, {&Colors::paper, &Colors::backdrop, &Colors::pressed, &Colors::accentTint}, 7},
      {&Colors::faint,
       {&Colors::paper, &Colors::backdrop, &Colors::pressed, &Colors::accentTint},
       4.5},
      {&Colors::accent,
       {&Colors::paper, &Colors::backdrop, &Colors::pressed, &Colors::accentTint},
       4.5},
      {&Colors::warning, {&Colors::paper, &Colors::backdrop}, 4.5},
      // Texts and symbols on filled controls and marks, and these marks on the paper.
      {&Colors::paper, {&Colors::accent, &Colors::start, &Colors::end, &Colors::stop}, 4.5},
      {&Colors::start, {&Colors::accentTint}, 3},
      {&Colors::end, {&Colors::accentTint}, 3},
      {&Colors::border, {&Colors::paper, &Colors::backdrop, &Colors::accentTint}, 3},
  };
  for (const bool isDark : {false, true})
    for (const bool hasHighContrast : {false, true}) {
      const Colors& colors = theme::colorsOf({isDark, hasHighContrast});
      for (const Pair& pair : pairs)
        for (const Member back : pair.backs)
          EXPECT_GE(contrastOf(colors.*pair.front, colors.*back),
                    hasHighContrast ? std::max(pair.least, 7.0) : pair.least)
              << "dark " << isDark << " high " << hasHighContrast << " pair " << &pair - pairs;
      // On any background, one color of the ring of the focus has at least the square root of this.
      EXPECT_GE(contrastOf(colors.ink, colors.paper), 9);
    }
}

}  // namespace orivanta::viewer

#include "Source/UI/Style/MapThemeFile.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta {
namespace {

using testing::HasSubstr;

TEST(MapThemeFile, ChangesWhatItNames) {
  const test::TemporaryFolder folder;
  const auto file = readMapTheme(folder.write("theme.json", R"({
      "base": "dark", "name": "Night", "author": "me",
      "fills": {"shop": "#102030", "shops": "red"},
      "colors": {"route": "#abc"},
      "icons": {"way": "purple"},
      "outlines": {"contrast": 3, "width": 2},
      "fonts": {"family": "Serif", "size": 20},
      "sizes": {"icon": 32},
      "zoom": [{"icon": 2, "name": 3}, {"importance": 50, "icon": 1, "nam": 1}],
      "words": {"food": ["_Döner_"], "sushi": ["x"]}})"));
  ASSERT_TRUE(file) << file.error().description;
  const MapTheme& theme = *file->theme;
  EXPECT_EQ(theme.name, "Night");
  EXPECT_EQ(theme.fill(FillKind::shop), colorOfHex(0x102030));
  EXPECT_EQ(theme.fill(FillKind::food), darkPalette.fills[1]);
  EXPECT_EQ(theme.colors.route, colorOfHex(0xAABBCC));
  EXPECT_EQ(theme.disc(PlaceKind::exit), graphics::colors::purple);
  EXPECT_EQ(theme.outlineContrast, 3);
  EXPECT_EQ(theme.fontFamily, "Serif");
  EXPECT_EQ(theme.sizes, (MapSizes{.name = 20, .outline = 2, .icon = 32}));
  EXPECT_EQ(theme.zoomStep(50).iconFrom, 1);
  EXPECT_EQ(theme.zoomStep(49).iconFrom, 2);
  EXPECT_EQ(theme.words.kindOf("Döner"), PlaceKind::food);
  EXPECT_THAT(file->unknownMembers,
              testing::UnorderedElementsAre("author", "fills.shops", "words.sushi", "zoom[1].nam"));
}

TEST(MapThemeFile, NamesWhatIsWrong) {
  const std::pair<const char*, const char*> faults[] = {
      {"", "expected a JSON object"},
      {"[]", "expected a JSON object"},
      {R"({"base": "blue"})", "base: expected \"light\" or \"dark\""},
      {R"({"name": 5})", "name: expected a text"},
      {R"({"fills": {"shop": "#12345"}})", "fills.shop: expected a color"},
      {R"({"colors": []})", "colors: expected an object"},
      {R"({"sizes": {"icon": "16"}})", "sizes.icon: expected a number from 1 to 1000"},
      {R"({"outlines": {"contrast": 22}})", "outlines.contrast: expected a number from 1 to 21"},
      {R"({"zoom": [{}, 3]})", "zoom[1]: expected an object"},
      {R"({"words": {"bus": ["_tram_", "--"]}})", "words.bus[1]: expected a word"},
  };
  for (const auto& [json, problem] : faults) {
    const auto theme = parseMapTheme(json);
    ASSERT_FALSE(theme) << json;
    EXPECT_THAT(theme.error().description, HasSubstr(problem)) << json;
  }
  EXPECT_FALSE(readMapTheme("/nonexistent/theme.json"));
}

}  // namespace
}  // namespace orivanta

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Panels/FloorSwitch.hpp"
#include "Apps/Viewer/Panels/KeyHelp.hpp"
#include "Apps/Viewer/Panels/PlaceCard.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"

namespace orivanta::viewer {

TEST(FloorSwitch, KeepsTheFloorThatShowsInSightHoweverManyThereAre) {
  std::vector<std::shared_ptr<Map>> floors;
  for (int i = 0; i < 28; ++i)
    floors.push_back(
        Map::make(*RawData::parse(fmt::format(R"({{"id": "{0}", "elevation": {0}}})", i))));
  FloorSwitch floorSwitch(floors);
  for (const double most : {2000.0, 768.0, 130.0, 10.0}) {
    const double height = floorSwitch.arrange(most).height;
    EXPECT_LE(height, std::max(most, theme::controlSize + 8));
    for (const std::size_t elevation : {0U, 27U, 13U}) {
      floorSwitch.setCurrent(floors[elevation]);
      const auto* list = dynamic_cast<const List*>(floorSwitch.subviews().front().get());
      ASSERT_NE(list, nullptr);
      const graphics::Rect shown = list->inSight().at(27 - elevation)->frame();
      EXPECT_GE(shown.minY(), 0) << elevation << " within " << most;
      EXPECT_LE(shown.maxY(), list->bounds().size.height) << elevation << " within " << most;
    }
  }
}

TEST(PlaceCard, IsNoHigherThanThereIsRoom) {
  const std::string text(1000, 'a');
  const auto place = Location::make(*RawData::parse(fmt::format(
      R"({{"id": "l", "name": "Place", "type": "shop", "description": "{}"}})", text + " b")));
  PlaceCard card{guidance::InterfaceTexts()};
  card.show(*place, "Cafe");
  card.setPicture(graphics::Image::make(200, 100, std::vector<std::uint8_t>(80'000, 255)),
                  PictureMode::fill);
  const double free = card.arrange(344, 2000, false);
  for (const double most : {free, free - 1, 300.0, 200.0, 160.0})
    EXPECT_LE(card.arrange(344, most, false), most);
  EXPECT_EQ(card.arrange(344, 2000, false), free) << "the full height is restored";
}

TEST(KeyHelp, IsNoHigherThanTheWindow) {
  KeyHelp help{guidance::InterfaceTexts()};
  for (const double height : {300.0, 400.0, 800.0})
    EXPECT_LE(help.arrange({2000, height}).height, height - 2 * theme::margin);
}

}  // namespace orivanta::viewer

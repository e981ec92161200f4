#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Panels/FloorSwitch.hpp"
#include "Apps/Viewer/Panels/KeyHelp.hpp"
#include "Apps/Viewer/Panels/PlaceCard.hpp"
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
      EXPECT_EQ(list->inSight().at(27 - elevation)->alpha(), 1) << elevation << " within " << most;
    }
  }
}

TEST(PlaceCard, IsNoHigherThanThereIsRoom) {
  PlaceCard card{guidance::InterfaceTexts()};
  CardContent content{.title = "Cafe", .description = std::string(1000, 'a') + " b"};
  content.week.assign(7, {"Monday", "09:00"});
  card.show(content);
  card.setNearest({{"Nearest exit", guidance::PlaceList()}});
  card.setPicture(graphics::Image::make(200, 100, std::vector<std::uint8_t>(80'000, 255)),
                  PictureMode::fill);
  const double folded = card.arrange(344, 2000, false);
  card.toggleWeek();
  const double free = card.arrange(344, 2000, false);
  EXPECT_GT(free, folded + 7 * 15);
  for (const double most : {free, free - 1, 400.0, 300.0, 200.0})
    EXPECT_LE(card.arrange(344, most, false), most);
  EXPECT_EQ(card.arrange(344, 2000, false), free) << "the full height is restored";
}

TEST(KeyHelp, IsNoHigherThanTheWindow) {
  KeyHelp help{guidance::InterfaceTexts()};
  for (const double height : {300.0, 400.0, 800.0})
    EXPECT_LE(help.arrange({2000, height}).height, height - 2 * theme::margin);
}

}  // namespace orivanta::viewer

#include "Source/UI/Display/Styled/FloorLabels.hpp"

#include <fmt/ranges.h>
#include <gtest/gtest.h>

#include "Platform/Scene/Node.hpp"
#include "Tests/Support/SyntheticFloor.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

// The top of a block.
std::shared_ptr<scene::Node> block(const char* name, graphics::Rect rect, double height) {
  std::vector<float> corners;
  for (const auto& [x, y] : {rect.origin,
                             {rect.maxX(), rect.minY()},
                             {rect.maxX(), rect.maxY()},
                             {rect.minX(), rect.maxY()}})
    for (const double part : {x, y, height}) corners.push_back(static_cast<float>(part));
  scene::GeometrySource source;
  source.data = test::bytesOf(corners);
  source.vectorCount = 4;
  scene::GeometryElement element;
  element.data = test::bytesOf(std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3});
  const auto node = scene::Node::make();
  node->setName(name);
  node->setGeometry(scene::Geometry::make({source}, {element}));
  return node;
}

//   y 40   +---------------------+  store: x 0 to 80
//          |            +------+ |
//          |  Store     | Kiosk| |  hall: all of it, below the nodes
//          |            +------+ |
//   y  0   +---------------------+-------+
//   y -20  |  hall    Room 7     | lift  |
class LabeledFloor {
 public:
  LabeledFloor() {
    small.polygons = R"([{"id": "store", "map": "g"}, {"id": "kiosk", "map": "g"},
        {"id": "room", "map": "g"}, {"id": "shaft", "map": "g"}, {"id": "hall", "map": "g"}])";
    small.categories = R"([{"id": "c1", "name": "Shops"}, {"id": "c2", "name": "Rooms"},
        {"id": "c3", "name": "Toilets"}, {"id": "c4", "name": "Restaurants"}])";
    small.nodes = R"([{"id": "n1", "map": "g", "x": 1, "y": 2, "z": 0.5},
                      {"id": "u1", "map": "f1", "x": 6, "y": 0}])";
    small.locations = R"([
        {"id": "l1", "name": "Store", "type": "shop", "categories": ["c1"],
         "polygons": [{"id": "room"}, {"id": "store"}]},
        {"id": "l2", "name": "Kiosk", "type": "food", "categories": ["c4"],
         "polygons": [{"id": "kiosk"}]},
        {"id": "l3", "name": "Room 7", "type": "room", "categories": ["c2"],
         "nameGenerated": true, "polygons": [{"id": "room"}]},
        {"id": "l4", "name": "Room 8", "type": "room", "categories": ["c2"],
         "nameGenerated": true, "nodes": [{"node": "n1"}]},
        {"id": "l5", "name": "Toilet 1", "type": "amenity", "categories": ["c3"],
         "nameGenerated": true, "nodes": [{"node": "n1"}]},
        {"id": "l6", "name": "Stand", "type": "shop", "categories": ["c1"],
         "nodes": [{"node": "n1"}]},
        {"id": "l7", "name": "Loft", "type": "shop", "nodes": [{"node": "u1"}]}])";
    small.vortices = R"([{"id": "lift", "name": "Lift A", "type": "elevator",
        "nodes": ["n1", "u1"], "polygons": [{"id": "shaft", "map": "g"}]}])";
  }

  FloorLabels labels(const MapTheme& theme, const guidance::Closures& closures = {}) const {
    const auto venue = small.load();
    Map& floor = *venue->maps->front();
    floor.mapObject = scene::Node::make();
    for (const auto& shape :
         {block("Ground", {{-100, -100}, {300, 300}}, 0), block("hall", {{0, -20}, {80, 60}}, 0.4),
          block("store", {{0, 0}, {80, 40}}, 3), block("kiosk", {{40, 5}, {30, 30}}, 4),
          block("room", {{20, -20}, {40, 20}}, 3), block("shaft", {{80, -20}, {10, 20}}, 3)})
      floor.mapObject->addChild(shape);
    // Each character is half as wide as high.
    const TextMeasure measure = [](std::string_view text, const graphics::TextStyle& style) {
      return graphics::Size{style.fontSize * static_cast<double>(text.size()) / 2, style.fontSize};
    };
    FloorRecords records = floorRecords(*venue, floor, theme.words, closures);
    records.closedWord = "Closed";
    return makeFloorLabels(records, FloorAreas(records), theme, measure);
  }

  test::TwoFloorVenue small;
};

std::string described(const FloorLabels& labels, std::size_t i) {
  const PlaceLabel& label = labels.labels[i];
  const LabelSource& source = labels.sources[i];
  return std::string(label.insideOnly ? "only " : "") +
         (source.names.empty() ? "" : source.names.front().lines.front()) +
         (label.room ? " in area" : "") + (source.isDot ? ", dot" : ", icon") +
         (label.symbolFirst ? " first" : "");
}

TEST(FloorLabels, ConsistOfThePlacesAndConnectorsOfTheFloor) {
  const FloorLabels labels = LabeledFloor().labels(*MapTheme::light());
  const std::vector<std::string> expected{"Store in area, dot",      "Kiosk in area, icon",
                                          "only Rooms in area, dot", ", icon first",
                                          "Stand, icon first",       "Lift A in area, icon first"};
  ASSERT_GE(labels.labels.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(described(labels, i), expected[i]);
  // The name of the store is beside the kiosk. Both areas are 3,200 and 900 square units.
  EXPECT_NEAR(labels.anchors[0].x, 20, 1);
  EXPECT_EQ(labels.anchors[0].z, 3);
  EXPECT_EQ(labels.anchors[4], (graphics::Vector3{1, 2, 0.5}));
  EXPECT_DOUBLE_EQ(labels.labels[0].rank, 62);
  EXPECT_LT(labels.labels[2].rank, 36);
  EXPECT_EQ(labels.labels[3].rank, 64) << "generated names of facilities do not matter";
  EXPECT_EQ(labels.unitsPerMeter, 2);
  const auto shareAt = [&](double x, double y, std::uint32_t owner) {
    return labels.raster.shareOnOthers({{{x, y}, {x + 2, y}, {x + 2, y + 2}, {x, y + 2}}}, owner);
  };
  EXPECT_EQ(shareAt(10, 10, 0), 0);
  EXPECT_EQ(shareAt(50, 20, 0), 1) << "the kiosk";
  EXPECT_EQ(shareAt(30, -10, 3), 1) << "the room";
  EXPECT_EQ(shareAt(5, -10, 0), 0) << "the hall";
}

TEST(FloorLabels, NameLargeAreasAtSeveralPoints) {
  const FloorLabels labels = LabeledFloor().labels(*MapTheme::light());
  ASSERT_EQ(labels.large.size(), 3U) << "the store, the kiosk and the room";
  EXPECT_EQ(labels.large.back().end, labels.labels.size());
  const auto& [main, first, end, pitch] = labels.large.front();
  EXPECT_EQ(main, 0U);
  EXPECT_EQ(pitch, 20);
  std::string points;
  for (std::size_t i = first; i < end; ++i) {
    points += fmt::format("{},{} ", labels.anchors[i].x, labels.anchors[i].y);
    EXPECT_EQ(described(labels, i), "only Store in area, dot");
  }
  EXPECT_EQ(points, "10,10 30,10 70,10 10,30 30,30 70,30 ") << "beside the kiosk";
}

TEST(FloorLabels, SayWhatIsClosed) {
  const FloorLabels labels =
      LabeledFloor().labels(*MapTheme::light(), guidance::Closures({"l1", "l3", "l4", "lift"}));
  const std::vector<std::string> expected{"Store/Closed", "Kiosk",        "Closed", "Closed", "",
                                          "Stand",        "Lift A/Closed"};
  ASSERT_GE(labels.labels.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const LabelSource& source = labels.sources[i];
    const bool isClosed = expected[i].ends_with("Closed");
    EXPECT_EQ(source.names.empty() ? "" : fmt::format("{}", fmt::join(source.names[0].lines, "/")),
              expected[i]);
    EXPECT_EQ(source.isClosed, isClosed);
    EXPECT_TRUE(!isClosed || (!source.isDot && labels.labels[i].symbolFirst)) << "an icon";
  }
}

TEST(FloorLabels, ScalesAndSizesAreThoseOfTheTheme) {
  LabeledFloor floor;
  floor.small.venue = R"({"id": "v", "slug": "small", "name": "Without a scale"})";
  MapTheme theme = *MapTheme::dark();
  theme.zoom = {{50, 1, 2}, {0, 7, 8}};
  theme.sizes = {20, 10, 2};
  theme.sizes.icon = 30;
  const FloorLabels labels = floor.labels(theme);
  EXPECT_EQ(labels.labels[0].scales.name, 2);
  EXPECT_LT(labels.labels[0].scales.inside, 1) << "in large rooms, names come early";
  EXPECT_EQ(labels.labels[2].scales.inside, 8) << "but no generated ones";
  EXPECT_EQ(labels.labels[2].scales.symbol, 7);
  EXPECT_EQ(labels.labels[0].names.front(), (graphics::Size{54, 22}));
  EXPECT_EQ(labels.labels[2].names.front(), (graphics::Size{29, 12})) << "a small name";
  EXPECT_EQ(labels.labels[1].symbolSize, 30);
  EXPECT_NEAR(labels.unitsPerMeter, 30 / 5.0, 1e-6) << "the median side of three rooms";
  EXPECT_EQ(nameStyle(theme, 50).outlineColor, theme.colors.halo);
}

}  // namespace
}  // namespace orivanta

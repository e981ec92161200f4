#include "Source/UI/Display/Styled/ShapeRoles.hpp"

#include <gtest/gtest.h>

#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::test {
namespace {

TEST(ShapeRoles, ComeFromPlacesConnectorsNamesAndHeights) {
  using Surface = ShapeRole::Surface;
  TwoFloorVenue records;
  records.nodes = R"([{"id": "n1", "map": "g", "x": 0, "y": 0, "z": 0.5}])";
  records.polygons =
      R"([{"id": "p1", "map": "g"}, {"id": "p2", "map": "g"}, {"id": "p3", "map": "g"},
                         {"id": "p4", "map": "g"}, {"id": "p5", "map": "g"}])";
  records.vortices = R"([{"id": "x", "name": "?", "type": "?", "nodes": [],
                          "polygons": [{"id": "p2", "map": "g"}]}])";
  records.locations = R"([
      {"id": "l0", "name": "Unknown", "type": "", "polygons": [{"id": "p1"}]},
      {"id": "l3", "name": "Foyer", "type": "", "polygons": [{"id": "p5"}]},
      {"id": "l1", "name": "Bakery", "type": "", "categories": ["c2"], "polygons": [{"id": "p1"}]},
      {"id": "l2", "name": "Stand", "type": "tenant"}])";
  const auto venue = records.load();
  const struct {
    const char* shape;
    double height;
    ShapeRole role;
  } cases[] = {
      {"p1", 0.4, {Surface::place, FillKind::food}},  // the first place of a known kind
      {"p2", 2, {Surface::place, FillKind::vertical}},
      {"p3", 0.4, {Surface::walkable, FillKind::other}},
      {"p4", 2, {Surface::place, FillKind::other}},
      {"p5", 0.4, {Surface::walkable, FillKind::other}},
      {"Ground", 0, {Surface::slab, FillKind::other}},
      {"Opening", 0, {Surface::backdrop, FillKind::other}},
      {"Walls", 3, {Surface::wall, FillKind::other}},
      {"ElevatorDoors", 3, {Surface::wall, FillKind::vertical}},
      {"Fixtures", 1, {Surface::fixture, FillKind::other}},
      {"Stand", 0.3, {Surface::place, FillKind::shop}},  // a location has this name
      {"Garden", 0.3, {Surface::place, FillKind::green}},
      {"?", 0.3, {Surface::walkable, FillKind::other}},
  };
  const auto map = venue->maps->front();
  map->mapObject = scene::Node::make();
  for (const auto& each : cases) {
    const auto shape = scene::Node::make(makeSlab(1, 1, 0.01));
    shape->setName(each.shape);
    shape->setPosition(scene::Axis::z, static_cast<float>(each.height));
    map->mapObject->addChild(shape);
  }
  const auto roles = shapeRoles(*map, *venue, KindWords());
  ASSERT_EQ(roles.size(), std::size(cases));
  for (std::size_t i = 0; i < roles.size(); ++i)
    EXPECT_EQ(roles[i], cases[i].role)
        << cases[i].shape << " " << static_cast<int>(roles[i].surface) << ", "
        << wordOf(roles[i].kind);
}

}  // namespace
}  // namespace orivanta::test

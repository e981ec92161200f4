#include "Apps/DemoVenue/Models.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "Apps/DemoVenue/ConnectorModels.hpp"
#include "Apps/DemoVenue/Package.hpp"
#include "Apps/DemoVenue/Palette.hpp"
#include "Apps/DemoVenue/Units.hpp"
#include "Apps/Package/TextFile.hpp"

namespace orivanta::demo {

namespace {

using package::Material;
using package::Model;

constexpr double padTop = 0.45;  // for places that people walk onto

std::string_view walkwayTexture(const Floor& floor) {
  return floor.id == "roof" ? "deck.png" : "tiles.png";
}

// The height of a place's model: low enough to look over, and different for shops and kiosks.
double heightOf(const Place& place) {
  if (place.shape.doors.empty()) return padTop;
  if (place.category == "department" || place.category == "cinema") return 4.8;
  if (place.category == "toilets" || place.category == "baby" || place.category == "cash" ||
      place.category == "lockers" || place.category == "first-aid")
    return 3.4;
  const bool kiosk = distance(place.shape.doors.front(), place.shape.inside) < 3.5;
  return kiosk ? 2.6 : 4.2;
}

// Adds a round pile of discs, each smaller than the one below.
void addSculpture(Model& model, Point middle, double radius) {
  double height = floorTop;
  for (const double share : {1.0, 0.78, 0.52, 0.2}) {
    model.prism(circle(middle, radius * share), height, height + 0.9);
    height += 0.9;
  }
}

// Adds a round dome of eight rings on top of a place, like that of an observatory.
void addDome(Model& model, Point middle, double radius, double bottom) {
  constexpr double quarter = 1.5707963267948966;
  constexpr int rings = 8;
  const auto ring = [&](int i) {
    return circle(middle, std::max(radius * std::cos(quarter * i / rings), 0.01));
  };
  const auto height = [&](int i) { return bottom + radius * 1.6 * std::sin(quarter * i / rings); };
  for (int i = 0; i < rings; ++i) model.frustum(ring(i), height(i), ring(i + 1), height(i + 1));
}

// Adds a glass front to the wall with the door.
void addShopfront(Model& model, const Outline& outline, Point door, double top) {
  constexpr double half = 1.3;
  constexpr double proud = 0.12;
  Point along = {0.0, 0.0};
  double nearest = 1.0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point a = outline[i];
    const Point b = outline[(i + 1) % outline.size()];
    const double away = distanceToSegment(a, b, door);
    if (away > nearest - 1e-9) continue;
    nearest = away;
    along = (b - a) * (1.0 / distance(a, b));
  }
  const Point outward = Point{along.y, -along.x} * proud;
  const Point left = door - along * half;
  const Point right = door + along * half;
  model.use({"Shopfront", palette::glass});
  model.prism({left - outward, left + outward, right + outward, right - outward}, floorTop, top);
}

void addPlace(Model& model, const Plan& plan, const Floor& floor, const Place& place) {
  model.use({polygonId(floor.id, place.id), placeColor(plan, place)});
  if (place.id == "great-astrolabe" || place.id == "tide-clock") {
    addSculpture(model, place.shape.inside,
                 distance(place.shape.doors.front(), place.shape.inside));
    return;
  }
  model.prism(place.shape.outline, slabTop, heightOf(place));
  for (const Point door : place.shape.doors)
    addShopfront(model, place.shape.outline, door, heightOf(place) * 0.7);
  if (place.id != "small-observatory") return;
  model.use({polygonId(floor.id, place.id)});
  addDome(model, place.shape.inside, 4.5, heightOf(place));
}

void addGround(Model& model, const Floor& floor) {
  model.use({"Ground", floor.id == "g" ? palette::paving : palette::plate});
  for (const Outline& piece : floor.slab) model.prism(piece, 0.0, slabTop);
}

// Adds a thin fence along an outline.
void addRailing(Model& model, const Outline& outline) {
  model.use({"Railing", palette::railing});
  const Outline inner = grown(outline, -0.25);
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const std::size_t next = (i + 1) % outline.size();
    model.prism({outline[i], outline[next], inner[next], inner[i]}, 0.0, 1.6);
  }
}

void addVoids(Model& model, const Floor& floor) {
  const bool glazed = floor.id == "roof";
  for (const Outline& outline : floor.voids) {
    model.use(glazed ? Material{"Skylight", palette::skylight}
                     : Material{"Atrium", palette::atrium});
    if (glazed)
      model.prism(grown(outline, -0.25), 0.0, 0.9);
    else
      model.top(outline, 0.05);
    addRailing(model, outline);
  }
}

void addTree(Model& model, Point at) {
  model.use({"Soil", palette::soil});
  model.prism(circle(at, 1.0, 12), slabTop, 0.8);
  model.use({"Leaves", palette::leaves});
  const Outline foot = circle(at, 0.9, 12);
  const Outline waist = circle(at, 1.9, 12);
  const Outline tip = circle(at, 0.05, 12);
  model.frustum(foot, 0.8, waist, 2.2);
  model.frustum(waist, 2.2, tip, 6.2);
}

void addGarnish(Model& model, const Floor& floor) {
  for (const Outline& lawn : floor.lawns) {
    model.use({"Lawn", palette::lawn});
    model.prism(lawn, slabTop, 0.5);
  }
  for (const Outline& inlay : floor.inlays) {
    model.use({"Inlay", palette::brass});
    model.top(inlay, floorTop + 0.02);
  }
  for (const Outline& outline : floor.railings) addRailing(model, outline);
  model.use({"Tables", palette::railing});
  for (const Point table : floor.tables) model.prism(circle(table, 0.75, 12), floorTop, 1.3);
  for (const Point tree : floor.trees) addTree(model, tree);
}

}  // namespace

package::Model makeModel(const Plan& plan, const Floor& floor) {
  Model model(unitsPerMeter);
  addGround(model, floor);
  for (const Walkway& walkway : floor.walkways) {
    model.use({polygonId(floor.id, walkway.id), {1.0, 1.0, 1.0}, walkwayTexture(floor)});
    model.prism(walkway.outline, slabTop, floorTop);
  }
  addVoids(model, floor);
  addGarnish(model, floor);
  for (const Place& place : floor.places) addPlace(model, plan, floor, place);
  addConnectors(model, plan, floor);
  return model;
}

void writeModels(const Plan& plan, const std::filesystem::path& folder) {
  for (const Floor& floor : plan.floors) {
    const Model model = makeModel(plan, floor);
    const std::string name(floor.id);
    package::writeFile(folder / (name + ".obj"), model.obj(name + ".mtl"));
    package::writeFile(folder / (name + ".mtl"), model.mtl());
  }
}

}  // namespace orivanta::demo

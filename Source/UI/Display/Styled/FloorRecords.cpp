#include "Source/UI/Display/Styled/FloorRecords.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Scene/Node.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

class FloorCopying {
 public:
  FloorCopying(const Venue& venue, const Map& floor, const KindWords& words,
               const guidance::Closures& closures)
      : venue_(venue), floor_(floor), words_(words), closures_(closures), names_(venue) {}

  FloorRecords run() {
    records_.unitsPerMeter = guidance::unitsPerMeterOf(venue_);
    if (venue_.locations)
      for (const auto& place : *venue_.locations) addPlace(place);
    if (venue_.vortices)
      for (const auto& connector : *venue_.vortices) addConnector(connector);
    if (floor_.mapObject) addShapes();
    return std::move(records_);
  }

 private:
  void addPlace(const std::shared_ptr<Location>& place) {
    if (!isOnFloor(*place, floor_)) return;
    PlaceRecord& record = add(place);
    for (const auto& polygon : place->polygons)
      if (polygon->map.get() == &floor_) record.shapes.push_back(polygon->id.value_or(""));
    // Shapes that are no polygons may have the names of places.
    if (place->polygons.empty()) record.shapes.push_back(place->name.value_or(""));
  }

  // The joined record of a connector has no polygons.
  void addConnector(const std::shared_ptr<Vortex>& connector) {
    if (!isOnFloor(*connector, floor_)) return;
    PlaceRecord& record = add(connector);
    for (const RawData& polygon : connector->_data["polygons"].arrayValue())
      record.shapes.push_back(polygon["id"].stringValue());
  }

  PlaceRecord& add(const std::shared_ptr<Location>& place) {
    PlaceRecord record{place,
                       words_.kindOf(*place),
                       names_.of(*place),
                       hasGeneratedName(*place),
                       closures_.contains(place->id.value_or("")),
                       {},
                       {}};
    const auto node = std::find_if(place->nodes.begin(), place->nodes.end(),
                                   [&](const auto& found) { return found->map.get() == &floor_; });
    if (node != place->nodes.end()) record.entry = scenePosition(**node);
    records_.places.push_back(std::move(record));
    return records_.places.back();
  }

  void addShapes() {
    const std::vector<ShapeRole> roles = shapeRoles(floor_, venue_, words_);
    const auto shapes = floor_.mapObject->children();
    for (std::size_t i = 0; i < shapes.size(); ++i)
      if (const auto geometry = shapes[i]->geometry(); geometry && canBearNames(roles[i].surface))
        records_.shapes.push_back({shapes[i]->name().value_or(""), geometry, roles[i].surface});
  }

  static bool canBearNames(ShapeRole::Surface surface) {
    return surface == ShapeRole::Surface::place || surface == ShapeRole::Surface::walkable ||
           surface == ShapeRole::Surface::backdrop;
  }

  const Venue& venue_;
  const Map& floor_;
  const KindWords& words_;
  const guidance::Closures& closures_;
  LabelNames names_;
  FloorRecords records_;
};

}  // namespace

FloorRecords floorRecords(const Venue& venue, const Map& floor, const KindWords& words,
                          const guidance::Closures& closures) {
  return FloorCopying(venue, floor, words, closures).run();
}

}  // namespace orivanta

#include "Source/UI/Display/Styled/FloorRecords.hpp"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
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
  FloorCopying(const Venue& venue, const Map& floor, const KindWords& words)
      : venue_(venue), floor_(floor), words_(words), names_(venue) {}

  FloorRecords run() {
    records_.unitsPerMeter = guidance::unitsPerMeterOf(venue_);
    if (venue_.nodes)
      for (const auto& node : *venue_.nodes)
        if (node->map.get() == &floor_)
          records_.lowestNode = std::min(records_.lowestNode.value_or(node->z), node->z);
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
      if (polygon->map.get() == &floor_) addShape(record, polygon->id.value_or(""));
    // Shapes that are no polygons may have the names of places.
    if (place->polygons.empty()) addShape(record, place->name.value_or(""));
  }

  // The joined record of a connector has no polygons.
  void addConnector(const std::shared_ptr<Vortex>& connector) {
    if (!isOnFloor(*connector, floor_)) return;
    PlaceRecord& record = add(connector);
    for (const RawData& polygon : connector->_data["polygons"].arrayValue())
      addShape(record, polygon["id"].stringValue());
  }

  PlaceRecord& add(const std::shared_ptr<Location>& place) {
    PlaceRecord record{
        place, words_.kindOf(*place), names_.of(*place), hasGeneratedName(*place), {}, {}};
    const auto node = std::find_if(place->nodes.begin(), place->nodes.end(),
                                   [&](const auto& found) { return found->map.get() == &floor_; });
    if (node != place->nodes.end()) record.entry = scenePosition(**node);
    records_.places.push_back(std::move(record));
    return records_.places.back();
  }

  void addShape(PlaceRecord& record, std::string name) {
    wanted_.insert(name);
    record.shapes.push_back(std::move(name));
  }

  void addShapes() {
    const graphics::Transaction transaction;
    for (const auto& shape : floor_.mapObject->children(transaction)) {
      const std::string name = shape->name().value_or("");
      const auto geometry = shape->geometry();
      const bool isOpening = name == "Opening";
      if (geometry && (isOpening || isPolygon(name) || wanted_.count(name) > 0))
        records_.shapes.push_back({name, geometry, isOpening});
    }
  }

  bool isPolygon(const std::string& name) const {
    return venue_.polygonDictionary &&
           venue_.polygonDictionary->find(name) != venue_.polygonDictionary->end();
  }

  const Venue& venue_;
  const Map& floor_;
  const KindWords& words_;
  LabelNames names_;
  FloorRecords records_;
  std::unordered_set<std::string> wanted_;  // the shapes of places
};

}  // namespace

FloorRecords floorRecords(const Venue& venue, const Map& floor, const KindWords& words) {
  return FloorCopying(venue, floor, words).run();
}

}  // namespace orivanta

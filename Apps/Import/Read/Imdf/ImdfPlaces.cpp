// Reads occupants, amenities, sections and the names of units.
#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "Apps/Import/Read/Imdf/ImdfImport.hpp"
#include "Apps/Import/Read/Imdf/ImdfTypes.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

bool isRoom(const Area& area) {
  return area.kind == AreaKind::room || area.kind == AreaKind::unknown;
}

class PlaceReader {
 public:
  explicit PlaceReader(ImdfImport& import) : import_(import) {}

  void read() {
    indexAnchors();
    for (const ImdfFeature* occupant : import_.archive.ofType("occupant")) readOccupant(*occupant);
    for (const char* type : {"unit", "kiosk", "fixture"})
      for (const ImdfFeature* feature : import_.archive.ofType(type)) readNamed(*feature);
    countAmenities();
    for (const ImdfFeature* amenity : import_.archive.ofType("amenity")) readAmenity(*amenity);
    for (const ImdfFeature* section : import_.archive.ofType("section")) readSection(*section);
  }

 private:
  Place placeOf(const ImdfFeature& feature, const std::string& type) const {
    const auto& properties = feature.data.properties;
    Place place;
    place.id = feature.id;
    place.source = feature.id;
    place.names = import_.archive.names(properties, "name");
    const std::string category = feature.text("category");
    place.category = category.empty() ? type : type + ':' + category;
    place.hours = feature.text("hours");
    place.phone = feature.text("phone");
    place.website = feature.text("website");
    place.access = imdfAccess(feature);
    place.wheelchair = imdfWheelchair(feature);
    return place;
  }

  void add(Place place) {
    indices_.emplace(place.id, import_.building.places.size());
    import_.building.places.push_back(std::move(place));
  }

  // An area has one place of its own. Others may share the area.
  static void claim(Area& area, Place& place) {
    place.areas.push_back(area.id);
    if (area.place.empty()) area.place = place.id;
  }

  // Kiosks and fixtures that an occupant has.
  void indexAnchors() {
    for (const char* type : {"kiosk", "fixture"})
      for (const ImdfFeature* feature : import_.archive.ofType(type))
        if (const std::string anchor = feature->text("anchor_id"); !anchor.empty())
          stands_.emplace(anchor, feature->id);
  }

  void readOccupant(const ImdfFeature& occupant) {
    const ImdfFeature* anchor = import_.archive.find(occupant.text("anchor_id"), "anchor");
    if (anchor == nullptr) return;
    Place place = placeOf(occupant, "occupant");
    const auto stand = stands_.find(anchor->id);
    Area* area = stand == stands_.end() ? nullptr : import_.area(stand->second);
    const ImdfFeature* unit = import_.archive.find(anchor->text("unit_id"), "unit");
    if (area == nullptr && unit != nullptr) area = import_.area(unit->id);
    if (area == nullptr) return;
    if (isRoom(*area) || area->kind == AreaKind::obstacle)
      claim(*area, place);
    else if (!anchor->data.geometry.points.empty())
      place.spots.push_back({area->level, anchor->data.geometry.points.front()});
    if (place.access == Access::everybody) place.access = area->access;
    add(std::move(place));
  }

  // A unit, kiosk or fixture with a name but without an occupant is a place itself.
  void readNamed(const ImdfFeature& feature) {
    Area* area = import_.area(feature.id);
    if (area == nullptr || !area->place.empty() || isConnector(area->kind) ||
        area->kind == AreaKind::wall || area->kind == AreaKind::opening)
      return;
    Place place = placeOf(feature, feature.type);
    if (place.names.name.empty()) return;
    claim(*area, place);
    add(std::move(place));
  }

  void countAmenities() {
    for (const ImdfFeature* amenity : import_.archive.ofType("amenity"))
      for (const std::string& id : memberTexts(amenity->data.properties, "unit_ids"))
        ++amenitiesOfUnit_[id];
  }

  // Whether the amenity is what the whole unit is: toilets in a unit of toilets, or the only thing
  // in a room of no stated use.
  bool isWhole(const ImdfFeature& amenity, const ImdfFeature& unit) const {
    const std::string category = unit.text("category");
    if (baseOf(category) == baseOf(amenity.text("category"))) return true;
    const bool generic = category == "room" || category == "unspecified" || category.empty();
    return generic && amenitiesOfUnit_.at(unit.id) == 1;
  }

  void readAmenity(const ImdfFeature& amenity) {
    const AreaKind kind = kindOfUnit(baseOf(amenity.text("category")));
    if (isConnector(kind) || !import_.isWithinBounds(amenity)) return;
    Place place = placeOf(amenity, "amenity");
    std::optional<double> level;
    for (const std::string& id : memberTexts(amenity.data.properties, "unit_ids")) {
      const ImdfFeature* unit = import_.archive.find(id, "unit");
      Area* area = unit == nullptr ? nullptr : import_.area(id);
      if (area == nullptr) continue;
      if (!level) level = area->level;
      if (!isRoom(*area) || !isWhole(amenity, *unit)) continue;
      if (!area->place.empty()) return complete(area->place, place);
      claim(*area, place);
    }
    if (place.areas.empty() && level && !amenity.data.geometry.points.empty())
      place.spots.push_back({*level, amenity.data.geometry.points.front()});
    if (level) add(std::move(place));
  }

  // Adds what the amenity says to the place that its unit has already.
  void complete(const std::string& id, const Place& amenity) {
    const auto found = indices_.find(id);
    if (found == indices_.end()) return;
    Place& place = import_.building.places[found->second];
    if (place.names.name.empty()) place.names = amenity.names;
    if (place.hours.empty()) place.hours = amenity.hours;
    if (place.phone.empty()) place.phone = amenity.phone;
    if (place.website.empty()) place.website = amenity.website;
    if (place.wheelchair == Wheelchair::unknown) place.wheelchair = amenity.wheelchair;
  }

  // A named part of a storey. It covers other areas, so it has only a position.
  void readSection(const ImdfFeature& section) {
    const std::optional<double> level = import_.levelOf(section);
    if (!level || section.data.geometry.polygons.empty() || !import_.isWithinBounds(section))
      return;
    Place place = placeOf(section, "section");
    if (place.names.name.empty()) return;
    const std::optional<Point> shown = imdfDisplayPoint(import_.archive, section);
    place.spots.push_back({*level, shown ? *shown : middle(section.data.geometry.polygons[0])});
    add(std::move(place));
  }

  static Point middle(const Polygon& polygon) {
    Point sum;
    for (const Point point : polygon.outer) sum = sum + point;
    return polygon.outer.empty() ? sum : sum * (1.0 / static_cast<double>(polygon.outer.size()));
  }

  ImdfImport& import_;
  std::unordered_map<std::string, std::string> stands_;  // by anchor
  std::unordered_map<std::string, int> amenitiesOfUnit_;
  std::unordered_map<std::string, std::size_t> indices_;  // of places
};

}  // namespace

void readImdfPlaces(ImdfImport& import) { PlaceReader(import).read(); }

}  // namespace orivanta::importer

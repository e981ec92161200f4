// Reads occupants, amenities, sections and the names of units.
#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>
#include <unordered_set>
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
    const auto& properties = feature.properties;
    Place place;
    place.id = feature.id;
    place.source = feature.id;
    place.names = import_.archive.names(properties, "name");
    const std::string category = feature.category();
    place.category = !category.empty() ? type + ':' + category
                     : type == "unit"  ? "unit:room"
                                       : type;
    place.hours = feature.text("hours");
    place.phone = feature.text("phone");
    place.website = feature.text("website");
    place.description = descriptionOf(feature);
    place.access = imdfAccess(feature);
    place.wheelchair = imdfWheelchair(feature);
    return place;
  }

  // The other names, and the address if it is not that of the whole venue.
  std::map<std::string, std::string> descriptionOf(const ImdfFeature& feature) const {
    std::map<std::string, std::string> texts;
    const Names others = import_.archive.names(feature.properties, "alt_name");
    if (!others.name.empty()) {
      texts = others.byLanguage;
      texts[""] = others.name;
    }
    const std::string address = addressOf(feature);
    if (address.empty()) return texts;
    texts.try_emplace("");
    for (auto& [language, text] : texts) text.append(text.empty() ? "" : "; ").append(address);
    return texts;
  }

  std::string addressOf(const ImdfFeature& feature) const {
    std::string id = feature.text("address_id");
    if (const ImdfFeature* anchor = import_.archive.find(feature.text("anchor_id"), "anchor");
        id.empty() && anchor != nullptr)
      id = anchor->text("address_id");
    const ImdfFeature* address = import_.archive.find(id, "address");
    const auto venues = import_.archive.byType.find("venue");
    if (address == nullptr || feature.type == "address") return {};
    if (venues != import_.archive.byType.end())
      for (const std::size_t venue : venues->second)
        if (import_.archive.features[venue].text("address_id") == id) return {};
    std::string text = address->text("address");
    if (const std::string unit = address->text("unit"); !unit.empty())
      text.append(text.empty() ? "" : ", ").append(unit);
    return text;
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
    else if (!anchor->geometry.points.empty())
      place.spots.push_back({area->level, anchor->geometry.points.front()});
    if (place.access == Access::everybody) place.access = area->access;
    add(std::move(place));
  }

  // A unit, kiosk or fixture with a name but without an occupant is a place itself.
  void readNamed(const ImdfFeature& feature) {
    Area* area = import_.area(feature.id);
    if (area == nullptr || !area->place.empty() || isConnector(area->kind) ||
        area->kind == AreaKind::wall || area->kind == AreaKind::opening)
      return;
    Place place = placeOf(feature, std::string(feature.type));
    if (place.names.name.empty()) return;
    claim(*area, place);
    add(std::move(place));
  }

  void countAmenities() {
    for (const ImdfFeature* amenity : import_.archive.ofType("amenity"))
      for (const std::string& id : memberTexts(amenity->properties, "unit_ids"))
        ++amenitiesOfUnit_[id];
  }

  // Whether the amenity is what the whole unit is: toilets in a unit of toilets, or the only thing
  // in a room of no stated use.
  bool isWhole(const ImdfFeature& amenity, const ImdfFeature& unit) const {
    const std::string category = unit.category();
    if (baseOf(category) == baseOf(amenity.category())) return true;
    const bool generic = category == "room" || category == "unspecified" || category.empty();
    return generic && amenitiesOfUnit_.at(unit.id) == 1;
  }

  void readAmenity(const ImdfFeature& amenity) {
    const AreaKind kind = kindOfUnit(baseOf(amenity.category()));
    if (isConnector(kind) || !import_.isWithinBounds(amenity)) return;
    Place place = placeOf(amenity, "amenity");
    std::optional<double> level;
    for (const std::string& id : memberTexts(amenity.properties, "unit_ids")) {
      const ImdfFeature* unit = import_.archive.find(id, "unit");
      Area* area = unit == nullptr ? nullptr : import_.area(id);
      if (area == nullptr) continue;
      if (!level) level = area->level;
      if (!isRoom(*area) || !isWhole(amenity, *unit)) continue;
      if (area->place.empty())
        claim(*area, place);
      else if (complete(area->place, place))
        return;
    }
    if (place.areas.empty() && level && !amenity.geometry.points.empty())
      place.spots.push_back({*level, amenity.geometry.points.front()});
    if (level) add(std::move(place));
  }

  // Adds what the amenity says to the place that its unit has already, once and unless they have
  // different names. Returns false otherwise: then it is a place of its own.
  bool complete(const std::string& id, const Place& amenity) {
    const auto found = indices_.find(id);
    if (found == indices_.end()) return false;
    Place& place = import_.building.places[found->second];
    const bool isOther = !amenity.names.name.empty() && !place.names.name.empty() &&
                         amenity.names.name != place.names.name;
    if (isOther || place.category.starts_with("amenity:") || !completed_.insert(id).second)
      return false;
    if (place.names.name.empty()) place.names = amenity.names;
    if (place.hours.empty()) place.hours = amenity.hours;
    if (place.phone.empty()) place.phone = amenity.phone;
    if (place.website.empty()) place.website = amenity.website;
    if (place.wheelchair == Wheelchair::unknown) place.wheelchair = amenity.wheelchair;
    return true;
  }

  // A named part of a storey. It covers other areas, so it has only a position.
  void readSection(const ImdfFeature& section) {
    const std::optional<double> level = import_.levelOf(section);
    if (!level || section.geometry.polygons.empty() || !import_.isWithinBounds(section)) return;
    Place place = placeOf(section, "section");
    if (place.names.name.empty()) return;
    const std::optional<Point> shown = imdfDisplayPoint(import_.archive, section);
    place.spots.push_back({*level, shown ? *shown : imdfMiddle(section.geometry.polygons[0])});
    add(std::move(place));
  }

  ImdfImport& import_;
  std::unordered_map<std::string, std::string> stands_;  // by anchor
  std::unordered_map<std::string, int> amenitiesOfUnit_;
  std::unordered_map<std::string, std::size_t> indices_;  // of places
  std::unordered_set<std::string> completed_;             // places that an amenity describes
};

}  // namespace

void readImdfPlaces(ImdfImport& import) { PlaceReader(import).read(); }

}  // namespace orivanta::importer

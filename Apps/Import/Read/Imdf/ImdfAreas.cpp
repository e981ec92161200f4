// Reads units, kiosks, fixtures and openings.
#include <algorithm>
#include <string>
#include <utility>

#include "Apps/Import/Read/Imdf/ImdfImport.hpp"
#include "Apps/Import/Read/Imdf/ImdfTypes.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"

namespace orivanta::importer {

namespace {

class AreaReader {
 public:
  explicit AreaReader(ImdfImport& import) : import_(import) {}

  void read() {
    for (const ImdfFeature* unit : import_.archive.ofType("unit")) readUnit(*unit);
    for (const ImdfFeature* kiosk : import_.archive.ofType("kiosk"))
      add(*kiosk, AreaKind::room, "kiosk");
    for (const ImdfFeature* fixture : import_.archive.ofType("fixture")) readFixture(*fixture);
    for (const ImdfFeature* opening : import_.archive.ofType("opening")) readOpening(*opening);
  }

 private:
  Area* add(const ImdfFeature& feature, AreaKind kind, std::string category) {
    const std::optional<double> level = import_.levelOf(feature);
    if (!level || feature.geometry.polygons.empty() || !import_.isWithinBounds(feature))
      return nullptr;
    Area area;
    area.id = feature.id;
    area.source = feature.id;
    area.kind = kind;
    area.level = *level;
    area.shape = feature.geometry.polygons;
    area.category = std::move(category);
    area.access = imdfAccess(feature);
    area.wheelchair = imdfWheelchair(feature);
    import_.areas.emplace(feature.id, import_.building.areas.size());
    import_.building.areas.push_back(std::move(area));
    return &import_.building.areas.back();
  }

  void readUnit(const ImdfFeature& unit) {
    const std::string category = unit.category();
    Area* area = add(unit, kindOfUnit(category), "unit:" + category);
    if (area != nullptr && isConnector(area->kind))
      area->names = import_.archive.names(unit.properties, "name");
  }

  void readFixture(const ImdfFeature& fixture) {
    const std::string category = fixture.category();
    add(fixture, category == "wall" ? AreaKind::wall : AreaKind::obstacle, "fixture:" + category);
  }

  void readOpening(const ImdfFeature& opening) {
    const std::optional<double> level = import_.levelOf(opening);
    const auto& [points, lines, polygons] = opening.geometry;
    const bool isDrawn = !points.empty() || (!lines.empty() && !lines.front().empty());
    if (!level || !isDrawn || !import_.isWithinBounds(opening)) return;
    Door door;
    door.id = opening.id;
    door.source = opening.id;
    door.kind = kindOf(opening);
    door.level = *level;
    if (!lines.empty()) door.line = lines.front();
    door.position = lines.empty() ? points.front() : middleOf(door.line);
    if (door.line.size() > 1) door.width = lengthOf(door.line);
    door.names = import_.archive.names(opening.properties, "name");
    door.access = accessOf(opening);
    door.wheelchair = imdfWheelchair(opening);
    import_.doors.emplace(opening.id, import_.building.doors.size());
    import_.building.doors.push_back(std::move(door));
  }

  static DoorKind kindOf(const ImdfFeature& opening) {
    const std::string category = opening.category();
    if (category == "emergencyexit") return DoorKind::emergency;
    const auto* door = memberObject(opening.properties, "door");
    const std::string type = door == nullptr ? "" : memberText(*door, "type");
    if (type.starts_with("turnstile")) return DoorKind::gate;
    if (category == "pedestrian.principal") return DoorKind::entrance;
    return type == "open" ? DoorKind::passage : DoorKind::door;
  }

  static Access accessOf(const ImdfFeature& opening) {
    const std::string category = opening.category();
    Access access = category == "service" ? Access::staff : Access::everybody;
    for (const std::string& control : memberTexts(opening.properties, "access_control")) {
      if (control == "outofservice") return Access::nobody;
      if (control != "guard") access = Access::staff;
    }
    // Vehicles use it.
    return category == "automobile" ? Access::nobody : access;
  }

  ImdfImport& import_;
};

}  // namespace

void readImdfAreas(ImdfImport& import) { AreaReader(import).read(); }

}  // namespace orivanta::importer

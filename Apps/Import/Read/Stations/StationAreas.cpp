#include "Apps/Import/Read/Stations/StationAreas.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <utility>

#include "Apps/Import/Read/JsonMembers.hpp"
#include "Apps/Import/Read/PlaneOrigin.hpp"
#include "Apps/Import/Read/Stations/SpaceFinder.hpp"
#include "Apps/Import/Read/Stations/StationCodes.hpp"
#include "Apps/Import/Read/Stations/StationFindings.hpp"
#include "Apps/Import/Read/Stations/StationFloors.hpp"
#include "Apps/Import/Read/Stations/StationPlaces.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

class AreaReader {
 public:
  AreaReader(std::vector<StationLayer>& layers, const Options& options, Building& building,
             Findings& findings)
      : layers_(layers),
        building_(building),
        findings_(findings),
        floors_(options, building, findings),
        places_(building) {}

  void read() {
    const std::size_t drawn = countOf(layers_, LayerKind::space);
    building_.areas.reserve(drawn + countOf(layers_, LayerKind::fixture));
    building_.places.reserve(drawn + countOf(layers_, LayerKind::facility));
    forLayers(LayerKind::floor, &AreaReader::addFloor);
    forLayers(LayerKind::space, &AreaReader::addSpace);
    const std::size_t spaces = building_.areas.size();
    forLayers(LayerKind::fixture, &AreaReader::addFixture);
    finder_.emplace(building_, spaces);
    findHalls(building_, *finder_);
    forLayers(LayerKind::facility, &AreaReader::addFacility);
    forLayers(LayerKind::opening, &AreaReader::addOpening);
    forLayers(LayerKind::drawing, &AreaReader::addDrawing);
    if (finder_->isExhausted())
      reportFeature(
          findings_, layers_.front(), {}, Severity::warning, "check-incomplete",
          "The spaces are too many, or have too many corners, to find the one around each node "
          "and facility.",
          "Some halls are taken as rooms, and some symbols as places of their own.",
          "Import a part of the network.");
  }

 private:
  // Which layer has an identifier, and how often it was seen.
  struct Use {
    LayerKind kind;
    int count;
  };

  using Add = void (AreaReader::*)(const StationLayer& layer, StationFeature& feature);

  void forLayers(LayerKind kind, Add add) {
    for (StationLayer& layer : layers_) {
      if (layer.kind != kind) continue;
      for (StationFeature& feature : layer.features) (this->*add)(layer, feature);
      layer.features = {};
    }
  }

  void addFloor(const StationLayer& layer, StationFeature& feature) { floors_.add(layer, feature); }

  // Unique in the building. The same identifier in another layer is no mistake.
  std::string idOf(const StationLayer& layer, const StationFeature& feature) {
    const std::string own(feature["id"]);
    std::string source = own.empty() ? fmt::format("{}:{}", layer.file, ids_.size()) : own;
    const auto [known, first] = ids_.emplace(source, Use{layer.kind, 1});
    if (first) return source;
    std::string id;
    do id = fmt::format("{}#{}", source, ++known->second.count);
    while (ids_.contains(id));
    if (known->second.kind == layer.kind)
      reportFeature(findings_, layer, feature, Severity::warning, "id-not-unique",
                    "There are two features with this identifier.",
                    "The second one is imported as \"" + id + "\".",
                    "Give each feature an identifier of its own.");
    ids_.emplace(id, Use{layer.kind, 1});
    return id;
  }

  void addSpace(const StationLayer& layer, StationFeature& feature) {
    if (feature.geometry.polygons.empty())
      return leaveOutFeature(findings_, layer, feature, "geometry-missing",
                             "The space has no polygon.", "Draw it, or delete the record.");
    const std::optional<double> level = floors_.levelOf(layer, feature);
    if (!level) return;
    if (isRepeated(feature))
      return reportFeature(findings_, layer, feature, Severity::info, "feature-repeated",
                           "The space is there twice, with the same outline.",
                           "The second one is left out.", "Delete one of them.");
    Area area;
    area.id = idOf(layer, feature);
    area.source = feature["id"];
    spaces_.emplace(area.source, building_.areas.size());
    area.category = feature["category"];
    area.kind = kindOfSpace(area.category);
    area.level = *level;
    area.shape = std::move(feature.geometry.polygons);
    if (feature["restricted"] == "1" || feature["nonpublic"] == "1" || area.category == "B026")
      area.access = Access::staff;
    Names names = namesOf(feature);
    if (isConnector(area.kind)) {
      area.names = std::move(names);
    } else if (!names.name.empty()) {
      area.place = area.id;
      Place place;
      place.id = area.id;
      place.source = area.source;
      place.names = std::move(names);
      place.category = area.category;
      place.areas = {area.id};
      place.access = area.access;
      places_.add(std::move(place));
    }
    building_.areas.push_back(std::move(area));
  }

  bool isRepeated(const StationFeature& feature) const {
    const auto found = spaces_.find(std::string(feature["id"]));
    if (found == spaces_.end()) return false;
    const Outline& first = building_.areas[found->second].shape.front().outer;
    const Outline& second = feature.geometry.polygons.front().outer;
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](Point one, Point other) { return one.x == other.x && one.y == other.y; });
  }

  void addFixture(const StationLayer& layer, StationFeature& feature) {
    if (feature.geometry.polygons.empty()) return;
    const std::optional<double> level = floors_.levelOf(layer, feature);
    if (!level) return;
    Area area;
    area.id = idOf(layer, feature);
    area.source = feature["id"];
    area.category = feature["category"];
    area.kind = area.category == "C010" ? AreaKind::wall : AreaKind::obstacle;
    area.level = *level;
    area.shape = std::move(feature.geometry.polygons);
    building_.areas.push_back(std::move(area));
  }

  void addFacility(const StationLayer& layer, StationFeature& feature) {
    const std::string code(feature["category"]);
    if (!isPlace(code) || feature.geometry.points.empty()) return;
    const std::optional<double> level = floors_.levelOf(layer, feature);
    if (!level) return;
    const Spot spot{*level, feature.geometry.points.front()};
    Place place;
    place.id = idOf(layer, feature);
    place.source = feature["id"];
    place.names = namesOf(feature);
    place.category = code;
    place.spots = {spot};
    const auto around =
        finder_->find(spot, [&](const Area& area) { return isSame(code, area.category); });
    if (around) {
      // The symbol of a space names it, or says nothing new.
      Area& space = building_.areas[*around];
      if (!space.place.empty() || place.names.name.empty()) return;
      space.place = place.id;
      place.areas = {space.id};
      place.spots.clear();
      place.category = space.category;
    }
    places_.add(std::move(place));
  }

  void addOpening(const StationLayer& layer, StationFeature& feature) {
    if (feature.geometry.lines.empty()) return;
    const std::optional<double> level = floors_.levelOf(layer, feature);
    if (!level) return;
    Door door;
    door.id = idOf(layer, feature);
    door.source = feature["id"];
    door.level = *level;
    door.line = feature.geometry.lines.front();
    door.position = middleOf(door.line);
    door.width = lengthOf(door.line);
    door.names = namesOf(feature);
    const bool gate = door.names.name.find("改札") != std::string::npos;
    door.kind = gate ? DoorKind::gate : DoorKind::passage;
    if (!door.names.name.empty()) places_.addOf(door, gate ? "F106" : "F017");
    building_.doors.push_back(std::move(door));
  }

  // Lines across flights are the edges of steps. Others are decoration.
  void addDrawing(const StationLayer& layer, StationFeature& feature) {
    if (feature.geometry.lines.empty()) return;
    const std::optional<double> level = floors_.levelOf(layer, feature);
    if (!level) return;
    for (const std::vector<Point>& line : feature.geometry.lines)
      for (std::size_t i = 1; i < line.size(); ++i) {
        const auto flight =
            finder_->find({*level, (line[i - 1] + line[i]) * 0.5}, [](const Area& area) {
              return area.kind == AreaKind::stairs || area.kind == AreaKind::escalator;
            });
        if (!flight) continue;
        constexpr std::size_t most = 256;  // more are damage
        std::vector<std::array<Point, 2>>& edges = building_.areas[*flight].stepEdges;
        if (edges.size() < most) edges.push_back({line[i - 1], line[i]});
      }
  }

  std::vector<StationLayer>& layers_;
  Building& building_;
  Findings& findings_;
  StationFloors floors_;
  std::unordered_map<std::string, Use> ids_;
  std::unordered_map<std::string, std::size_t> spaces_;  // indices of areas
  StationPlaces places_;
  std::optional<SpaceFinder> finder_;
};

}  // namespace

void readStationAreas(std::vector<StationLayer>& layers, const Options& options, Building& building,
                      Findings& findings) {
  AreaReader(layers, options, building, findings).read();
  if (building.areas.empty() && building.sourceNodes.empty())
    throw SourceError(layers.front().file +
                      ": there is neither a space nor a node to import; name the folder with all "
                      "layers of the network");
}

}  // namespace orivanta::importer

// Finds the connectors: the cells that transitions join across storeys.
#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "Apps/Import/DisjointSets.hpp"
#include "Apps/Import/Read/IndoorGml/GmlImport.hpp"
#include "Apps/Import/Read/IndoorGml/GmlKinds.hpp"

namespace orivanta::importer {

namespace {

class ConnectorReader {
 public:
  explicit ConnectorReader(GmlImport& import)
      : import_(import), sets_(import.document.cells.size()) {}

  void read() {
    std::set<std::size_t> joined;
    for (const GmlTransition& transition : import_.document.transitions) {
      const auto cells = import_.graph.cellsOf(transition);
      if (!cells || import_.levels[cells->first] == import_.levels[cells->second]) continue;
      joined.insert({cells->first, cells->second});
      sets_.join(cells->first, cells->second);
    }
    std::map<std::size_t, std::vector<std::size_t>> groups;
    for (const std::size_t cell : joined) groups[sets_.find(cell)].push_back(cell);
    indexStatesAndPlaces();
    for (const auto& [root, cells] : groups) addGroup(cells);
    removePlaces();
  }

 private:
  void indexStatesAndPlaces() {
    for (const GmlState& state : import_.document.states)
      if (const auto cell = import_.graph.cellOfState(state.id); cell && !state.positions.empty())
        positions_.emplace(
            *cell, import_.scale.toPlane({state.positions.front().x, state.positions.front().y}));
    for (const Place& place : import_.building.places) names_.emplace(place.id, place.names);
  }

  void addGroup(const std::vector<std::size_t>& cells) {
    const AreaKind kind = kindOf(cells);
    bool allDrawn = true;
    for (const std::size_t cell : cells) {
      // A cell of no stated kind is what it is joined with. A room with stairs in it stays one.
      if (import_.areas[cell] && isUnstated(cell)) areaOf(cell).kind = kind;
      allDrawn = allDrawn && import_.areas[cell] && isConnector(areaOf(cell).kind);
    }
    if (allDrawn)
      for (const std::size_t cell : cells) {
        areaOf(cell).connector = import_.document.cells[cells.front()].id;
        // It is no place, unlike the room that it was taken for.
        removePlace(cell);
      }
    else
      addHint(cells, kind);
  }

  // A TransitionSpace may be a corridor, but that has more than one or two neighbors.
  bool isUnstated(std::size_t cell) const {
    constexpr std::size_t mostBesideStairs = 2;
    const GmlSpace& space = import_.document.cells[cell];
    if (!statedKind(space)) return true;
    if (describedKind(space) || space.element != "TransitionSpace") return false;
    const std::vector<std::size_t>& neighbors = import_.graph.neighbors(cell);
    return std::count_if(neighbors.begin(), neighbors.end(), [&](std::size_t other) {
             return import_.levels[other] == import_.levels[cell];
           }) <= static_cast<std::ptrdiff_t>(mostBesideStairs);
  }

  Area& areaOf(std::size_t cell) { return import_.building.areas[*import_.areas[cell]]; }

  // What one of the cells says. Otherwise a cell the size of a cabin is an elevator.
  AreaKind kindOf(const std::vector<std::size_t>& cells) {
    constexpr double largestCabin = 8.0;
    for (const std::size_t cell : cells)
      if (const auto kind = statedKind(import_.document.cells[cell]); kind && isConnector(*kind))
        return *kind;
    const bool small = std::all_of(cells.begin(), cells.end(), [&](std::size_t cell) {
      return import_.areas[cell] &&
             std::abs(package::signedArea(areaOf(cell).shape.front().outer)) <= largestCabin;
    });
    import_.report(Severity::warning, "connector-kind-guessed",
                   import_.document.cells[cells.front()].id,
                   "The cells of several storeys are joined, but none says whether they are stairs "
                   "or an elevator.",
                   small ? "They are taken as an elevator, because they are small."
                         : "They are taken as stairs.",
                   "Write indoor=\"stair\" or indoor=\"elevator\" into their descriptions.");
    return small ? AreaKind::elevator : AreaKind::stairs;
  }

  void removePlace(std::size_t cell) {
    Area& area = areaOf(cell);
    if (area.place.empty()) return;
    removedPlaces_.insert(area.place);
    area.names = names_[area.place];
    area.place.clear();
  }

  void removePlaces() {
    auto& places = import_.building.places;
    places.erase(
        std::remove_if(places.begin(), places.end(),
                       [&](const Place& place) { return removedPlaces_.contains(place.id); }),
        places.end());
  }

  void addHint(const std::vector<std::size_t>& cells, AreaKind kind) {
    ConnectorHint hint;
    hint.id = hint.source = import_.document.cells[cells.front()].id;
    hint.kind = connectorKindOf(kind);
    for (const std::size_t cell : cells) {
      if (import_.areas[cell] && isConnector(areaOf(cell).kind))
        hint.areas.push_back(areaOf(cell).id);
      else if (const auto position = positions_.find(cell); position != positions_.end())
        hint.spots.push_back({import_.levels[cell], position->second});
    }
    std::stable_sort(
        hint.spots.begin(), hint.spots.end(),
        [](const Spot& first, const Spot& second) { return first.level < second.level; });
    import_.building.connectorHints.push_back(std::move(hint));
  }

  GmlImport& import_;
  DisjointSets sets_;  // of cells
  std::unordered_set<std::string> removedPlaces_;
  std::unordered_map<std::size_t, Point> positions_;  // of the states of cells
  std::unordered_map<std::string, Names> names_;      // of places
};

}  // namespace

void readGmlConnectors(GmlImport& import) { ConnectorReader(import).read(); }

}  // namespace orivanta::importer

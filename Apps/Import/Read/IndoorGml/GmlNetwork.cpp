// Makes the source's network of states and transitions.
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"
#include "Apps/Import/Read/IndoorGml/GmlImport.hpp"
#include "Apps/Import/Read/IndoorGml/GmlKinds.hpp"

namespace orivanta::importer {

namespace {

LinkKind linkKindOf(AreaKind kind) {
  switch (kind) {
    case AreaKind::elevator:
      return LinkKind::elevator;
    case AreaKind::escalator:
      return LinkKind::escalator;
    case AreaKind::ramp:
      return LinkKind::ramp;
    default:
      return LinkKind::stairs;
  }
}

class NetworkReader {
 public:
  explicit NetworkReader(GmlImport& import) : import_(import) {}

  void read() {
    for (const GmlState& state : import_.document.states) addState(state);
    for (const GmlTransition& transition : import_.document.transitions) addTransition(transition);
    if (import_.document.cells.empty())
      for (const GmlState& state : import_.document.states) addPlace(state);
  }

 private:
  Point onPlane(const GmlPosition& position) const {
    return import_.scale.toPlane({position.x, position.y});
  }

  void addState(const GmlState& state) {
    const auto cell = import_.graph.cellOfState(state.id);
    std::optional<Point> position;
    if (!state.positions.empty())
      position = onPlane(state.positions.front());
    else if (cell)
      position = middleOfCell(*cell);
    if (!position)
      return import_.report(Severity::warning, "network-incomplete", state.id,
                            "The state has neither a point nor a cell.", "It is left out.",
                            "Add its point.");
    const double level = cell                      ? import_.levels[*cell]
                         : state.positions.empty() ? 0.0
                                                   : import_.storeys.at(state.positions[0].z);
    if (!states_.emplace(state.id, Spot{level, *position}).second) return;
    addNode(state.id, {level, *position});
  }

  // Where no cells are drawn, the names of states tell what is where.
  void addPlace(const GmlState& state) {
    GmlSpace cell;
    cell.element = "CellSpace";
    cell.name = state.name;
    const auto spot = states_.find(state.id);
    if (cell.name.empty() || cell.name == state.id || spot == states_.end() || isGmlDoor(cell) ||
        describedKind(cell))
      return;
    Place place;
    place.id = place.source = state.id;
    place.names.name = state.name;
    place.category = gmlCategory(cell);
    place.spots.push_back(spot->second);
    import_.building.places.push_back(std::move(place));
  }

  std::optional<Point> middleOfCell(std::size_t cell) const {
    if (!import_.areas[cell]) return std::nullopt;
    const Outline& outline = import_.building.areas[*import_.areas[cell]].shape.front().outer;
    Point sum;
    for (const Point point : outline) sum = sum + point;
    return sum * (1.0 / static_cast<double>(outline.size()));
  }

  void addTransition(const GmlTransition& transition) {
    const auto from = states_.find(transition.connects.front());
    const auto to = states_.find(transition.connects.back());
    if (from == states_.end() || to == states_.end() || from == to)
      return import_.report(Severity::warning, "network-incomplete", transition.id,
                            "The transition connects a state that does not exist.",
                            "It is left out, so routes cannot use it.", "Add the state.");
    if (from->second.level != to->second.level)
      return addLink(transition.id, nodeAt(from->second), nodeAt(to->second),
                     linkKindOf(kindOf(transition)));
    std::string last = nodeAt(from->second);
    const std::vector<Point> bends = bendsOf(transition, from->second.position);
    for (std::size_t each = 0; each < bends.size(); ++each) {
      const Spot spot{from->second.level, bends[each]};
      std::string next = nodeAt(spot);
      if (next.empty()) next = addNode(transition.id + '-' + std::to_string(each + 1), spot);
      addLink(transition.id + '-' + std::to_string(each + 1), last, next, LinkKind::walk);
      last = next;
    }
    addLink(transition.id, last, nodeAt(to->second), LinkKind::walk);
  }

  // The inner points of a transition, from a state that is at one of its ends.
  std::vector<Point> bendsOf(const GmlTransition& transition, Point start) const {
    std::vector<Point> line;
    line.reserve(transition.line.size());
    for (const GmlPosition& position : transition.line) line.push_back(onPlane(position));
    if (line.size() < 3) return {};
    if (package::distance(line.back(), start) < package::distance(line.front(), start))
      line.assign(line.rbegin(), line.rend());
    return {line.begin() + 1, line.end() - 1};
  }

  AreaKind kindOf(const GmlTransition& transition) const {
    const auto cells = import_.graph.cellsOf(transition);
    if (!cells) return AreaKind::stairs;
    for (const std::size_t cell : {cells->first, cells->second})
      if (import_.areas[cell]) {
        const AreaKind kind = import_.building.areas[*import_.areas[cell]].kind;
        if (linkKindOf(kind) != LinkKind::stairs) return kind;
      }
    return AreaKind::stairs;
  }

  // Lines of different transitions meet where they share a point.
  using Key = std::tuple<double, long, long>;

  static Key keyOf(const Spot& spot) {
    constexpr double perMeter = 1000.0;
    return {spot.level, std::lround(spot.position.x * perMeter),
            std::lround(spot.position.y * perMeter)};
  }

  std::string nodeAt(const Spot& spot) const {
    const auto found = nodes_.find(keyOf(spot));
    return found == nodes_.end() ? std::string() : found->second;
  }

  std::string addNode(const std::string& id, const Spot& spot) {
    if (nodes_.emplace(keyOf(spot), id).second) import_.building.sourceNodes.push_back({id, spot});
    return nodeAt(spot);
  }

  // Each pair of nodes once: many documents have each transition in both directions.
  void addLink(const std::string& id, const std::string& from, const std::string& to,
               LinkKind kind) {
    if (from == to || !links_.insert(std::minmax(from, to)).second) return;
    SourceLink link;
    link.id = id;
    link.from = from;
    link.to = to;
    link.kind = kind;
    import_.building.sourceLinks.push_back(std::move(link));
  }

  GmlImport& import_;
  std::map<std::string, Spot> states_;
  std::map<Key, std::string> nodes_;
  std::set<std::pair<std::string, std::string>> links_;
};

}  // namespace

void readGmlNetwork(GmlImport& import) { NetworkReader(import).read(); }

}  // namespace orivanta::importer

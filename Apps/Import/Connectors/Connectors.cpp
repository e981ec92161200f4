#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "Apps/Import/Connectors/BridgeGaps.hpp"
#include "Apps/Import/Connectors/Continuing.hpp"
#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/Connectors/FromPieces.hpp"
#include "Apps/Import/Connectors/JoinFlights.hpp"
#include "Apps/Import/Connectors/Pairing.hpp"
#include "Apps/Import/Connectors/PlacesOfConnectors.hpp"
#include "Apps/Import/Connectors/StatedLevels.hpp"
#include "Apps/Import/Connectors/Stops.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

// Collects the pieces of a building and joins those that belong together.
class ConnectorMaker {
 public:
  ConnectorMaker(const Building& building, Findings& findings)
      : building_(building), findings_(findings), surroundings_(building) {
    for (const Place& place : building.places)
      if (!place.names.generated) places_.emplace(place.id, &place);
    for (const Area& area : building.areas) {
      if (area.access == Access::nobody) continue;
      if (auto piece = pieceOf(area)) {
        byArea_.emplace(area.id, pieces_.size());
        pieces_.push_back(std::move(*piece));
      }
    }
    const std::vector<std::size_t> joined = joinContinuing(pieces_);
    for (auto& [area, piece] : byArea_) piece = joined[piece];
    for (const ConnectorHint& hint : building.connectorHints) addSpots(hint);
  }

  std::vector<Connector> make() {
    DisjointSets sets(pieces_.size());
    joinAsStated(sets);
    std::vector<bool> open(pieces_.size(), true);
    for (const std::vector<std::size_t>& set : sets.all())
      for (const std::size_t i : set) open[i] = !onSeveralLevels(set);
    const std::vector<bool> drawn = takeLines(open, sets);
    pairByShape(pieces_, heightsOf(building_), open, sets);
    pairFar(pieces_, heightsOf(building_), leadingNowhere(sets, drawn), sets);
    pairNearest(pieces_, heightsOf(building_), leadingNowhere(sets, drawn), sets);
    for (const std::vector<std::size_t>& set : sets.all())
      if (!drawn[set.front()]) addConnector(set);
    return std::move(made_);
  }

  const Surroundings& surroundings() const { return surroundings_; }

 private:
  bool onSeveralLevels(const std::vector<std::size_t>& set) const {
    return std::any_of(set.begin(), set.end(), [&](std::size_t i) {
      return pieces_[i].level != pieces_[set.front()].level;
    });
  }

  // A spot within a drawn piece of its kind stands for it; others are pieces of their own.
  void addSpots(const ConnectorHint& hint) {
    std::vector<std::size_t>& members = hinted_[hint.id];
    for (const std::string& area : hint.areas)
      if (const auto piece = byArea_.find(area); piece != byArea_.end())
        members.push_back(piece->second);
    for (const Spot& stated : hint.spots) {
      const Spot spot = settled(hint, stated);
      const std::size_t drawn = pieceAt(hint.kind, spot);
      if (drawn < pieces_.size()) {
        members.push_back(drawn);
        continue;
      }
      // An area that the hint names already tells where the connector is on this storey.
      if (std::any_of(members.begin(), members.end(), [&](std::size_t i) {
            return pieces_[i].area != nullptr && pieces_[i].level == spot.level;
          }))
        continue;
      Piece piece;
      piece.kind = hint.kind;
      piece.level = spot.level;
      piece.box.center = spot.position;
      piece.source = hint.source.empty() ? hint.id : hint.source;
      members.push_back(pieces_.size());
      pieces_.push_back(std::move(piece));
    }
    for (const std::size_t i : members) {
      Piece& piece = pieces_[i];
      if (piece.names.name.empty()) piece.names = hint.names;
      if (piece.wheelchair == Wheelchair::unknown) piece.wheelchair = hint.wheelchair;
      if (piece.direction == Direction::unknown) piece.direction = hint.direction;
    }
  }

  // The spot on the level of a path that is joined to it, if nothing is near it on its own. Of
  // several such spots, nobody knows which one is meant.
  Spot settled(const ConnectorHint& hint, const Spot& stated) {
    const auto isAstray = [&](const Spot& spot) {
      return isLost(spot, hint.source, surroundings_) && !surroundings_.isInRoom(spot);
    };
    const bool mayMove =
        isAstray(stated) && std::count_if(hint.spots.begin(), hint.spots.end(), isAstray) == 1;
    const double level = settledLevel({hint.kind, hint.source, hint.source, stated, mayMove},
                                      surroundings_, findings_);
    const bool isTaken = std::any_of(hint.spots.begin(), hint.spots.end(),
                                     [&](const Spot& other) { return other.level == level; });
    return isTaken ? stated : Spot{level, stated.position};
  }

  std::size_t pieceAt(ConnectorKind kind, const Spot& spot) {
    constexpr double beside = 0.8;
    const AreaIndex& index =
        indexes_
            .try_emplace(spot.level, building_, spot.level,
                         [](const Area& area) { return pieceOf(area).has_value(); })
            .first->second;
    std::size_t best = pieces_.size();
    double nearest = beside;
    for (const Area* area : index.near(spot.position, beside)) {
      const auto piece = byArea_.find(area->id);
      if (piece == byArea_.end() || pieces_[piece->second].kind != kind) continue;
      const double away = index.distance(*area, spot.position, beside);
      if (away >= nearest) continue;
      nearest = away;
      best = piece->second;
    }
    return best;
  }

  void joinAsStated(DisjointSets& sets) const {
    std::map<std::string, std::size_t> byText;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (pieces_[i].area == nullptr || pieces_[i].area->connector.empty()) continue;
      const auto [entry, added] = byText.emplace(pieces_[i].area->connector, i);
      if (!added) sets.join(entry->second, i);
    }
    for (const auto& [hint, members] : hinted_)
      for (std::size_t i = 1; i < members.size(); ++i) sets.join(members.front(), members[i]);
  }

  // Makes connectors of lines. Pieces in which a line lies only show it; the result tells which. A
  // line in an area with a list of levels of its own adds nothing.
  std::vector<bool> takeLines(std::vector<bool>& open, DisjointSets& sets) {
    std::vector<bool> drawn(pieces_.size(), false);
    for (const Line& line : building_.lines) {
      auto connector = connectorOf(line, surroundings_, findings_);
      if (!connector) continue;
      const Point middle = line.points[line.points.size() / 2] * 0.5 +
                           line.points[(line.points.size() - 1) / 2] * 0.5;
      bool known = false;
      for (Stop& stop : connector->stops) {
        const std::size_t i = pieceAt(connector->kind, {stop.spot.level, middle});
        if (i == pieces_.size()) continue;
        known = known || (!open[i] && !drawn[sets.find(i)]);
        stop.area = pieces_[i].area->id;
      }
      if (known) continue;
      for (const Stop& stop : connector->stops)
        if (!stop.area.empty()) {
          const std::size_t i = byArea_.at(stop.area);
          open[i] = false;
          drawn[sets.find(i)] = true;
        }
      made_.push_back(std::move(*connector));
    }
    return drawn;
  }

  // The pieces without partners that do not reach another part of the space either.
  std::vector<bool> leadingNowhere(DisjointSets& sets, const std::vector<bool>& drawn) {
    std::vector<bool> nowhere(pieces_.size(), false);
    for (const std::vector<std::size_t>& set : sets.all())
      if (set.size() == 1 && !drawn[set.front()])
        nowhere[set.front()] = stopsOfSingle(pieces_[set.front()], surroundings_).size() < 2;
    return nowhere;
  }

  void addConnector(const std::vector<std::size_t>& set) {
    std::vector<const Piece*> members;
    members.reserve(set.size());
    for (const std::size_t i : set) members.push_back(&pieces_[i]);
    std::stable_sort(members.begin(), members.end(),
                     [](const Piece* a, const Piece* b) { return a->level < b->level; });
    Connector connector = connectorOf(members, surroundings_);
    for (const Piece* piece : members)
      if (connector.names.name.empty()) connector.names = nameOf(*piece);
    while (!taken_.insert(connector.id).second) connector.id += "-2";
    made_.push_back(std::move(connector));
  }

  Names nameOf(const Piece& piece) const {
    if (!piece.names.name.empty() || piece.area == nullptr || piece.area->place.empty())
      return piece.names;
    const auto place = places_.find(piece.area->place);
    return place == places_.end() ? piece.names : place->second->names;
  }

  const Building& building_;
  Findings& findings_;
  Surroundings surroundings_;
  std::map<std::string, const Place*> places_;  // with names of their own
  std::vector<Piece> pieces_;
  std::map<std::string, std::size_t> byArea_;
  std::map<double, AreaIndex> indexes_;                     // of the areas of connectors
  std::map<std::string, std::vector<std::size_t>> hinted_;  // by hint
  std::vector<Connector> made_;
  std::set<std::string> taken_;
};

}  // namespace

void makeConnectors(Building& building, const Options& options, Findings& findings) {
  const bool linked =
      std::any_of(building.sourceLinks.begin(), building.sourceLinks.end(),
                  [](const SourceLink& link) { return link.kind != LinkKind::walk; });
  if (linked && options.network != NetworkChoice::derive) {
    building.connectors = connectorsOfLinks(building);
  } else {
    ConnectorMaker maker(building, findings);
    std::vector<Connector> connectors = maker.make();
    joinFlights(connectors);
    std::vector<Line> paths = bridgeGaps(building, connectors, maker.surroundings(), findings);
    building.connectors = std::move(connectors);
    for (Line& path : paths) {
      for (const double level : path.levels) building.walkableSpaces.erase(level);
      building.lines.push_back(std::move(path));
    }
  }
  dropPlacesOfConnectors(building);
}

}  // namespace orivanta::importer

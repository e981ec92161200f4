#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "Apps/Import/Connectors/BridgeGaps.hpp"
#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/Connectors/FromPieces.hpp"
#include "Apps/Import/Connectors/JoinFlights.hpp"
#include "Apps/Import/Connectors/Pairing.hpp"
#include "Apps/Import/Connectors/Pieces.hpp"
#include "Apps/Import/Connectors/PlacesOfConnectors.hpp"
#include "Apps/Import/Connectors/Stops.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

// Joins the pieces that belong together.
class ConnectorMaker {
 public:
  ConnectorMaker(const Building& building, Findings& findings)
      : building_(building),
        findings_(findings),
        surroundings_(building),
        heights_(heightsOf(building)),
        found_(building, heights_, surroundings_, findings),
        pieces_(found_.all()) {
    for (const Place& place : building.places)
      if (!place.names.generated) places_.emplace(place.id, &place);
  }

  std::vector<Connector> make() {
    DisjointSets sets(pieces_.size());
    joinAsStated(sets);
    std::vector<bool> open(pieces_.size(), true);
    for (const std::vector<std::size_t>& set : sets.all())
      for (const std::size_t i : set) open[i] = !onSeveralLevels(set);
    for (const auto& [lower, upper] : found_.betweenExits())
      if (open[lower] && open[upper]) sets.join(lower, upper);
    std::vector<bool> drawn = takeLines(open, sets);
    for (const Pieces::WayOut& way : found_.waysOut()) open[way.exit] = false;
    for (std::size_t i = 0; i < pieces_.size(); ++i)
      if (joinsItsStorey(pieces_[i], surroundings_)) open[i] = false;
    pairByShape(pieces_, heights_, open, sets, found_.betweenExits());
    takeWaysOut(sets, drawn);
    pairFar(pieces_, heights_, leadingNowhere(sets, drawn), sets);
    pairNearest(pieces_, heights_, leadingNowhere(sets, drawn), sets);
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

  void joinAsStated(DisjointSets& sets) const {
    std::map<std::string, std::size_t> byText;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      if (pieces_[i].area == nullptr || pieces_[i].area->connector.empty()) continue;
      const auto [entry, added] = byText.emplace(pieces_[i].area->connector, i);
      if (!added) sets.join(entry->second, i);
    }
    for (const auto& [hint, members] : found_.hinted())
      for (std::size_t i = 1; i < members.size(); ++i) sets.join(members.front(), members[i]);
  }

  // Leads flights that lead nowhere else to the exits at which none is drawn.
  void takeWaysOut(DisjointSets& sets, std::vector<bool>& drawn) {
    std::vector<bool> nowhere = leadingNowhere(sets, drawn);
    for (const Pieces::WayOut& way : found_.waysOut()) {
      if (nowhere[way.flight])
        sets.join(way.flight, way.exit);
      else
        drawn[way.exit] = true;
      nowhere[way.flight] = false;
    }
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
        const std::size_t i = found_.at(connector->kind, {stop.spot.level, middle});
        if (i == Pieces::none) continue;
        known = known || (!open[i] && !drawn[sets.find(i)]);
        stop.area = pieces_[i].area->id;
      }
      if (known) continue;
      for (const Stop& stop : connector->stops)
        if (!stop.area.empty()) {
          const std::size_t i = found_.ofArea(stop.area);
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
  const Heights heights_;
  Pieces found_;
  const std::vector<Piece>& pieces_;
  std::map<std::string, const Place*> places_;  // with names of their own
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

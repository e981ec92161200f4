#include "Apps/Import/Connectors/Pieces.hpp"

#include <algorithm>
#include <utility>

#include "Apps/Import/Connectors/Continuing.hpp"
#include "Apps/Import/Connectors/SameExits.hpp"
#include "Apps/Import/Connectors/StatedLevels.hpp"

namespace orivanta::importer {

namespace {

// The spot on the level of a path that is joined to it, if nothing is near it on its own. Of
// several such spots, nobody knows which one is meant.
Spot settled(const ConnectorHint& hint, const Spot& stated, const Surroundings& surroundings,
             Findings& findings) {
  const auto isAstray = [&](const Spot& spot) {
    return isLost(spot, hint.source, surroundings) && !surroundings.isInRoom(spot);
  };
  const bool mayMove =
      isAstray(stated) && std::count_if(hint.spots.begin(), hint.spots.end(), isAstray) == 1;
  const double level =
      settledLevel({hint.kind, hint.source, hint.source, stated, mayMove}, surroundings, findings);
  const bool isTaken = std::any_of(hint.spots.begin(), hint.spots.end(),
                                   [&](const Spot& other) { return other.level == level; });
  return isTaken ? stated : Spot{level, stated.position};
}

}  // namespace

Pieces::Pieces(const Building& building, const Heights& heights, const Surroundings& surroundings,
               Findings& findings)
    : building_(building) {
  for (const Area& area : building.areas) {
    if (area.access == Access::nobody) continue;
    if (auto piece = pieceOf(area)) {
      byArea_.emplace(area.id, pieces_.size());
      pieces_.push_back(std::move(*piece));
    }
  }
  const std::vector<std::size_t> joined = joinContinuing(pieces_);
  for (auto& [area, piece] : byArea_) piece = joined[piece];
  for (const ConnectorHint& hint : building.connectorHints) addSpots(hint, surroundings, findings);
  addExits(building, heights, surroundings);
}

std::size_t Pieces::ofArea(const std::string& area) const {
  const auto found = byArea_.find(area);
  return found == byArea_.end() ? none : found->second;
}

std::size_t Pieces::at(ConnectorKind kind, const Spot& spot) {
  constexpr double beside = 0.8;
  const AreaIndex& index =
      indexes_
          .try_emplace(spot.level, building_, spot.level,
                       [](const Area& area) { return pieceOf(area).has_value(); })
          .first->second;
  std::size_t best = none;
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

std::size_t Pieces::addSpot(ConnectorKind kind, const Spot& spot) {
  Piece piece;
  piece.kind = kind;
  piece.level = spot.level;
  piece.box.center = spot.position;
  pieces_.push_back(std::move(piece));
  return pieces_.size() - 1;
}

// A spot within a drawn piece of its kind stands for it; others are pieces of their own.
void Pieces::addSpots(const ConnectorHint& hint, const Surroundings& surroundings,
                      Findings& findings) {
  std::vector<std::size_t>& members = hinted_[hint.id];
  for (const std::string& area : hint.areas)
    if (const auto piece = byArea_.find(area); piece != byArea_.end())
      members.push_back(piece->second);
  for (const Spot& stated : hint.spots) {
    const Spot spot = settled(hint, stated, surroundings, findings);
    const std::size_t drawn = at(hint.kind, spot);
    if (drawn != none) {
      members.push_back(drawn);
      continue;
    }
    // An area that the hint names already tells where the connector is on this storey.
    if (std::any_of(members.begin(), members.end(), [&](std::size_t i) {
          return pieces_[i].area != nullptr && pieces_[i].level == spot.level;
        }))
      continue;
    members.push_back(addSpot(hint.kind, spot));
    pieces_.back().source = hint.source.empty() ? hint.id : hint.source;
  }
  for (const std::size_t i : members) {
    Piece& piece = pieces_[i];
    if (piece.names.name.empty()) piece.names = hint.names;
    if (piece.wheelchair == Wheelchair::unknown) piece.wheelchair = hint.wheelchair;
    if (piece.direction == Direction::unknown) piece.direction = hint.direction;
  }
}

// Finds the flights at exits. Exits at which nothing is drawn are pieces of their own.
void Pieces::addExits(const Building& building, const Heights& heights,
                      const Surroundings& surroundings) {
  constexpr double beside = 2.0;
  for (const ExitPair& pair : pairsOfExits(building, heights))
    for (const ConnectorKind kind : {ConnectorKind::stairs, ConnectorKind::escalator}) {
      const std::size_t lower = at(kind, pair.lower);
      const std::size_t upper = at(kind, pair.upper);
      if (lower != none && upper != none) betweenExits_.emplace_back(lower, upper);
      if ((lower == none) == (upper == none)) continue;
      const Spot& other = lower == none ? pair.lower : pair.upper;
      if (surroundings.distance(other.level, other.position) > beside) continue;
      waysOut_.push_back({std::min(lower, upper), addSpot(kind, other)});
    }
}

}  // namespace orivanta::importer

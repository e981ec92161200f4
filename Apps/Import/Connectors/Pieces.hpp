// The pieces of all connectors of a building, before it is known which of them belong together.
#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "Apps/Import/Connectors/Pairing.hpp"
#include "Apps/Import/Connectors/Piece.hpp"
#include "Apps/Import/Connectors/Surroundings.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"

namespace orivanta::importer {

/// Drawn areas, the spots that hints state where none is drawn, and exits to which flights lead.
/// Refers to the building, which must outlive it.
class Pieces {
 public:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

  /// Reports hints whose levels contradict their surroundings.
  Pieces(const Building& building, const Heights& heights, const Surroundings& surroundings,
         Findings& findings);

  const std::vector<Piece>& all() const { return pieces_; }

  /// The piece of an area, or `none`.
  std::size_t ofArea(const std::string& area) const;

  /// The drawn piece of a kind at a spot or less than 0.8 m from it, or `none`.
  std::size_t at(ConnectorKind kind, const Spot& spot);

  /// The pieces that hints name, by the identifier of the hint.
  const std::map<std::string, std::vector<std::size_t>>& hinted() const { return hinted_; }

  /// The flights at the two exits of a pair.
  const std::vector<PieceIndices>& betweenExits() const { return betweenExits_; }

  /// A flight at one exit of a pair, and the other exit, at which none is drawn.
  struct WayOut {
    std::size_t flight;
    std::size_t exit;  ///< a piece without area
  };
  const std::vector<WayOut>& waysOut() const { return waysOut_; }

 private:
  void addSpots(const ConnectorHint& hint, const Surroundings& surroundings, Findings& findings);
  void addExits(const Building& building, const Heights& heights, const Surroundings& surroundings);
  std::size_t addSpot(ConnectorKind kind, const Spot& spot);

  const Building& building_;
  std::vector<Piece> pieces_;
  std::map<std::string, std::size_t> byArea_;
  std::map<double, AreaIndex> indexes_;  // of the areas of connectors
  std::map<std::string, std::vector<std::size_t>> hinted_;
  std::vector<PieceIndices> betweenExits_;
  std::vector<WayOut> waysOut_;
};

}  // namespace orivanta::importer

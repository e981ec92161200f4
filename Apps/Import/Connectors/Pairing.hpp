// Finds which pieces on different storeys belong to one connector, by what the source says and by
// their shapes.
#pragma once

#include <cstddef>
#include <vector>

#include "Apps/Import/Connectors/Piece.hpp"

namespace orivanta::importer {

/// Disjoint sets of pieces. The least index stands for a set, so that the order of joining does not
/// matter.
class PieceSets {
 public:
  explicit PieceSets(std::size_t count);
  std::size_t find(std::size_t piece) const;
  void join(std::size_t a, std::size_t b);
  /// The sets in the order of their first pieces, each in ascending order.
  std::vector<std::vector<std::size_t>> all() const;

 private:
  std::vector<std::size_t> parents_;
};

/// The storeys from bottom to top. Those at one height, such as the ground floor and the street,
/// are one element.
using Heights = std::vector<std::vector<double>>;

Heights heightsOf(const Building& building);

/// Joins pieces of neighboring heights: elevators that overlap by 20 %; stairs and escalators that
/// overlap, touch end to end, or lie in line within 8 m, the best pairs first. Then those with one
/// height between them. A piece that a hint or a list of levels has joined takes part only if
/// `open` is true for it.
void pairByShape(const std::vector<Piece>& pieces, const Heights& heights,
                 const std::vector<bool>& open, PieceSets& sets);

/// Joins flights whose ends are less than 12 m apart, the nearest pairs first. For pieces that lead
/// nowhere otherwise, such as the parts of winding stairs.
void pairNearest(const std::vector<Piece>& pieces, const Heights& heights,
                 const std::vector<bool>& open, PieceSets& sets);

}  // namespace orivanta::importer

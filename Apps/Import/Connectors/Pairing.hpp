// Finds which pieces on different storeys belong to one connector, by what the source says and by
// their shapes.
#pragma once

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "Apps/Import/Connectors/Piece.hpp"
#include "Apps/Import/DisjointSets.hpp"

namespace orivanta::importer {

/// The storeys from bottom to top. Those at one height, such as the ground floor and the street,
/// are one element.
using Heights = std::vector<std::vector<double>>;

Heights heightsOf(const Building& building);

/// The indices of a lower and an upper piece.
using PieceIndices = std::pair<std::size_t, std::size_t>;

/// Joins pieces of neighboring heights: elevators that overlap by 20 %; stairs and escalators that
/// overlap, touch end to end, or lie in line within 8 m, the best pairs first. Then those with one
/// height between them. A piece that a hint or a list of levels has joined takes part only if
/// `open` is true for it. A piece of a `known` pair gets no other partner on the same side of it.
void pairByShape(const std::vector<Piece>& pieces, const Heights& heights,
                 const std::vector<bool>& open, DisjointSets& sets,
                 std::span<const PieceIndices> known);

/// Joins pieces that overlap by half with any number of heights between them. For pieces that lead
/// nowhere otherwise, such as flights that pass several storeys.
void pairFar(const std::vector<Piece>& pieces, const Heights& heights,
             const std::vector<bool>& open, DisjointSets& sets);

/// Joins flights whose ends are less than 12 m apart, the nearest pairs first. For pieces that lead
/// nowhere otherwise, such as the parts of winding stairs.
void pairNearest(const std::vector<Piece>& pieces, const Heights& heights,
                 const std::vector<bool>& open, DisjointSets& sets);

}  // namespace orivanta::importer

// The figures that the comparison of a derived with a surveyed walking network prints.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Benchmarks/SurveyedPackage.hpp"

namespace orivanta::benchmarks {

/// The length of a way that does not exist.
inline constexpr double unknownLength = std::numeric_limits<double>::infinity();

PlainNetwork plainNetwork(const importer::Network& network);

/// The lengths from the nearest of several nodes to each node.
std::vector<double> lengthsFrom(const PlainNetwork& network,
                                const std::vector<std::size_t>& starts);

/// 0 if there are no values.
double quantile(std::vector<double> values, double share);

/// Such as "3 of 4 (75.00 %)".
std::string share(std::size_t part, std::size_t whole);

// Each prints a few lines. With `list`, they name what is missing.
void countDoors(const importer::Building& building);
void countReachableRooms(const importer::Building& building, bool list);
void countLinesThroughWalls(const importer::Building& building);
/// How much longer ways are than the same ways without the bends that they need not make.
void countDetours(const importer::Building& building, bool list);
void compareLengths(const importer::Building& building, const SurveyedPackage& survey, bool list);
/// Without `bends`, the derived network's lines are straight between the nodes of both.
void compareSharedNodes(PlainNetwork derived, const SurveyedPackage& survey, bool bends);
void compareConnectors(const importer::Building& building, const SurveyedPackage& survey,
                       bool list);

}  // namespace orivanta::benchmarks

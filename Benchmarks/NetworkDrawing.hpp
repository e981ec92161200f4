// Draws the walkable space of a storey with the network that was derived from it.
#pragma once

#include <filesystem>

#include "Apps/Import/Building.hpp"

namespace orivanta::benchmarks {

/// Writes an SVG file of 20 pixels a meter, at most 4,000 pixels wide.
void drawNetwork(const importer::Building& building, double level,
                 const std::filesystem::path& file);

}  // namespace orivanta::benchmarks

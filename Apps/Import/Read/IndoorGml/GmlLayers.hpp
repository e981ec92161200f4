// Chooses the layers of an IndoorGML document that make up the building.
#pragma once

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

/// Keeps the first layer that has states, and those that have other cells elsewhere, such as those
/// of further storeys. Other layers describe the same places for other purposes, such as the ranges
/// of sensors: their states and transitions are left out, and cells that only they have.
/// Of layers without cells, the positions of the states count.
void chooseGmlLayers(GmlDocument& document, Findings& findings);

}  // namespace orivanta::importer

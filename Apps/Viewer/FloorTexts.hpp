// The texts about loading the floors of a venue.
#pragma once

#include <string>
#include <vector>

#include "Apps/Viewer/VenueSource.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/UI/FloorLoad.hpp"

namespace orivanta::viewer {

/// Returns the completed share of loading the floors, from 0 to 1.
double loadedShare(const std::vector<FloorProgress>& floors);

/// Returns how many files and floors are loaded.
std::string progressText(const std::vector<FloorProgress>& floors,
                         const guidance::InterfaceTexts& texts);

/// Returns why a floor that failed or has no model cannot be shown.
Problem floorProblem(const FloorProgress& floor, const guidance::InterfaceTexts& texts);

/// Returns the same as one sentence.
std::string floorNote(const FloorProgress& floor, const guidance::InterfaceTexts& texts);

/// Returns why none of the floors can be shown.
Problem floorsProblem(const std::vector<FloorProgress>& floors, const Venue& venue,
                      const guidance::InterfaceTexts& texts);

/// Returns a sentence about what is missing or not current, or an empty text.
std::string omissions(const std::vector<FloorProgress>& floors,
                      const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer

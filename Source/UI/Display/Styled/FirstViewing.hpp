// Opens a map where its places are.
#pragma once

#include <memory>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Display/FirstViewInput.hpp"
#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta {

/// Returns what places of a kind mean for the first view.
FirstViewRole firstViewRole(PlaceKind kind);

/// Returns the floor to open with: of those with a model if there are any. Returns null if the
/// venue has no floors. Main thread.
std::shared_ptr<Map> firstFloorOf(const Venue& venue, const KindWords& words);

/// Moves the camera to the region of the current floor in which most places are. Keeps tilt and
/// turn. Shows the whole floor if it has no places. Does nothing before the view shows a floor.
/// Main thread.
void showFirstRegion(const MapView& view, const KindWords& words, CameraMotion motion);

}  // namespace orivanta

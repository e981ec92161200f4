// The symbols on stacked floors.
// Private header.
#pragma once

#include <memory>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"
#include "Source/UI/Display/Styled/StackFloors.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

/// Returns labels without names for the ways to other floors and out, and for toilets, without
/// those beside their floors and on faded floors. They are where the floors are while they are
/// stacked, and hidden where a higher floor covers them. Where floors are small, only those that
/// are far from others of their kind are shown. `size`: of symbols, points. `venue`
/// is loaded. Main thread.
std::shared_ptr<const FloorLabels> stackSymbols(const Venue& venue, const StackedFloors& stack,
                                                std::shared_ptr<const StackCover> cover,
                                                const MapTheme& theme, double size,
                                                const guidance::Closures& closures);

}  // namespace orivanta

// A good order of many stops.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Network/VertexMatrix.hpp"

namespace orivanta::guidance {

/// Returns a good order of at least three stops, with the first and the last in place: each stop is
/// inserted where it costs least, and then parts are reversed as long as this helps. The cost
/// between two stops is the least one between their nodes. Returns nothing if no order was found in
/// which each stop can be reached from the one before, or if the token is canceled.
std::optional<std::vector<std::size_t>> goodOrder(const VertexMatrix& matrix, std::size_t stopCount,
                                                  const foundation::CancellationToken& token);

}  // namespace orivanta::guidance

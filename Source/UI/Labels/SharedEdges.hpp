// Finds the boundary of triangles that lie side by side.
// Private header.
#pragma once

#include <vector>

#include "Source/UI/Labels/LabelArea.hpp"

namespace orivanta {

/// Removes the edges that two triangles share, given the edges of all triangles. An edge of one may
/// be a part of an edge of the other. The work is limited to about 8 million corners; parts of such
/// edges may then remain, always in pairs.
std::vector<LabelEdge> withoutShared(std::vector<LabelEdge> edges);

}  // namespace orivanta

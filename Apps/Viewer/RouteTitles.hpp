// Short texts by which the user tells alternative routes apart.
#pragma once

#include <string>
#include <vector>

#include "Apps/Viewer/GuidedRoute.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Returns a title for each route: its summary and, for routes with equal summaries, what
/// distinguishes them: the kinds of their connectors, the names of these, or a place on the way. If
/// that is not enough, the equal titles are numbered. `guide` made the routes. Any thread.
std::vector<std::string> routeTitles(const std::vector<GuidedRoute>& routes,
                                     const guidance::Guide& guide,
                                     const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer

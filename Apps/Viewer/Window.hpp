// The viewer in a window.
#pragma once

#include <string>

#include "Apps/Viewer/Times.hpp"
#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Render/Window/WindowSurface.hpp"

namespace orivanta::viewer {

/// Until somebody closes the window. Draws at the screen's rate while something moves, else only
/// when something has changed; never while the window is hidden or minimized. Pictures that are
/// asked for go into the working directory, their names to standard output. Called on the thread
/// that made the window.
void runWindow(Viewer& viewer, render::WindowSurface& surface, Times& times);

}  // namespace orivanta::viewer

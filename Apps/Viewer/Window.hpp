// Shows the viewer in a window.
#pragma once

#include <functional>
#include <string_view>

#include "Apps/Viewer/Times.hpp"
#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Render/Window/WindowSurface.hpp"

namespace orivanta::viewer {

/// The output of the window. Both functions must be set.
struct WindowOutput {
  std::function<void(std::string_view text)> write;  ///< the name of a saved picture, with "\n"
  std::function<void(std::string_view text)> warn;   ///< a warning, without "\n"
};

/// Returns when the window is closed. Draws at the display's refresh rate while something moves,
/// otherwise only when something has changed, and never while the window is hidden or minimized.
/// Saves requested images in the working directory. Must be called on the thread that created the
/// window.
void runWindow(Viewer& viewer, render::WindowSurface& surface, Times& times,
               const WindowOutput& output);

}  // namespace orivanta::viewer

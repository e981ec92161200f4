// Which of several surfaces in one plane is visible.
#pragma once

namespace orivanta::render {

/// Asks the driver how precise it is. `setDepthLayer` does that otherwise, and waits until the
/// driver has carried out everything else.
void prepareDepthLayers();

/// Moves what is drawn next closer to the camera, so that it hides lower layers in the same plane.
/// Layer 0 is not moved.
void setDepthLayer(int layer);

}  // namespace orivanta::render

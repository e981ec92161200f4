// Draws the floor of the benchmarks with OpenSceneGraph.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "Benchmarks/SeenFloor.hpp"

namespace orivanta::benchmarks {

/// Draws off screen, but needs the X server that `DISPLAY` names. Not thread-safe.
class OpenSceneGraphStage {
 public:
  /// Every room becomes a geometry with vertex buffers, a color and its own state, so that each can
  /// be highlighted; OpenSceneGraph's Wavefront reader does the same. `shadowMapSide` is in texels.
  /// If `isToldThatRoomsAreClosed` is true, back faces are culled, which OpenSceneGraph does not
  /// decide by itself. Throws std::runtime_error if there is no X server.
  OpenSceneGraphStage(const SeenFloor& floor, int shadowMapSide, bool isToldThatRoomsAreClosed);
  ~OpenSceneGraphStage();

  /// Draws a frame with 4 samples from the floor's camera, and reads the image.
  void draw();

  /// The last frame: 4 bytes per pixel, from the lower left corner.
  std::span<const std::uint8_t> pixels() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace orivanta::benchmarks

// The floor of the benchmarks drawn by OpenSceneGraph.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "Benchmarks/SeenFloor.hpp"

namespace orivanta::benchmarks {

/// Draws off screen, but needs the X server that `DISPLAY` names. One thread.
class OpenSceneGraphStage {
 public:
  /// Every room becomes a geometry with vertex buffers, a color and a state of its own, so that
  /// each can be highlighted, as OpenSceneGraph's reader of Wavefront models has it.
  /// `shadowMapSide`: texels. `isToldThatRoomsAreClosed`: whether it leaves out faces that are
  /// turned away, which it does not find out by itself. Throws std::runtime_error without an X
  /// server.
  OpenSceneGraphStage(const SeenFloor& floor, int shadowMapSide, bool isToldThatRoomsAreClosed);
  ~OpenSceneGraphStage();

  /// Draws a frame with 4 samples, seen from where the floor's camera is, and reads the picture.
  void draw();

  /// Of the last frame: 4 bytes a pixel, from the lower left corner.
  std::span<const std::uint8_t> pixels() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace orivanta::benchmarks

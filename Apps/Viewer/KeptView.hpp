// Keeps what the camera shows in view when the window changes its size.
#pragma once

#include <functional>
#include <optional>

#include "Source/UI/Display/MapCamera.hpp"

namespace orivanta::viewer {

/// Remembers what the application has moved the camera to, until something else moves it. Main
/// thread.
class KeptView {
 public:
  /// Moves the camera.
  using Look = std::function<void(CameraMotion motion)>;

  /// `camera` must exist as long as the object.
  explicit KeptView(MapCamera& camera) : camera_(camera) {}

  /// Calls `look` and remembers it.
  void show(Look look, CameraMotion motion);

  /// Remembers `look` for where the camera is or glides to.
  void keep(Look look);

  /// Calls the last `look` again, without a motion, if the camera is still where it has moved it.
  /// Returns false if there is none or if the camera was moved since.
  bool showAgain();

 private:
  MapCamera& camera_;
  Look look_;  // null if nothing is remembered
  CameraPose pose_;
};

}  // namespace orivanta::viewer

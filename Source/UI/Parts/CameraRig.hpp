// The nodes that carry a map view's camera, and the only code that writes them.
#pragma once

#include <optional>

#include "Platform/Scene/Fwd.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta {

class MapView;

/// Works on the nodes that the map view has in `cameraOrbit` and `labelsOrbit`. Owned by the map
/// view; main thread. A missing node where one is required is a fatal error.
class CameraRig {
 public:
  explicit CameraRig(MapView& view) : view_(view) {}

  /// Makes the nodes anew, above the middle of everything in the scene, and adds them to `root`.
  void build(scene::Node& root);

  bool isBuilt() const;

  /// Where the camera is. The rig is built.
  CameraPose pose() const;

  /// The field of view, in degrees; that of the map view before the rig is built.
  double fieldOfView() const;

  /// Puts the camera at a pose. The rig is built.
  void place(const CameraPose& pose);

  // One part of the pose each, as the gestures change it.
  void shift(float right, float down);  ///< scene units, in the directions of the view
  void setTilt(float angle);            ///< radians
  void setTurn(float angle);            ///< radians

  /// Fatal if the orbit has no children.
  float distance() const;
  void setDistance(float distance);

 private:
  void addOrbit(scene::Node& root, graphics::Vector3 middle);
  void addLabels(scene::Node& root);
  scene::Node& orbit() const;
  scene::Node& labels() const;
  scene::Node& carrier() const;
  void adaptPlanes();

  MapView& view_;
};

}  // namespace orivanta

// The camera nodes of a map view, and the only code that changes them.
// Private header.
#pragma once

#include <optional>

#include "Platform/Scene/Fwd.hpp"
#include "Source/UI/Display/CameraPose.hpp"

namespace orivanta {

class MapView;

/// Changes the map view's nodes `cameraOrbit` and `labelsOrbit`, and adapts the clip planes of the
/// camera to each pose. Owned by the map view. Main thread. A missing required node is a fatal
/// error.
class CameraRig {
 public:
  explicit CameraRig(MapView& view) : view_(view) {}

  /// Creates new nodes above the center of the scene's content, and adds them to `root`.
  void build(scene::Node& root);

  /// Returns whether the nodes exist.
  bool isBuilt() const;

  /// Returns the pose of the camera. The rig must be built.
  CameraPose pose() const;

  /// Returns the field of view in degrees. Returns that of the map view if the rig is not built.
  double fieldOfView() const;

  /// Sets the field of view in degrees. Does nothing if the rig is not built.
  void setFieldOfView(double degrees);

  /// Moves the camera to a pose. The rig must be built.
  void place(const CameraPose& pose);

  // Each function changes one part of the pose; used by the gestures.
  void shift(float right, float down);  ///< scene units, in view directions
  void setTilt(float angle);            ///< radians
  void setTurn(float angle);            ///< radians

  /// It is a fatal error if the orbit has no children.
  float distance() const;
  void setDistance(float distance);

  /// Adapts the clip planes to another floor. Does nothing if the rig is not built.
  void floorChanged() { adaptPlanes(); }

  /// Adapts the clip planes to another size of the view. Does nothing until a pose was set, so that
  /// a new scene keeps its planes.
  void viewResized();

 private:
  void addOrbit(scene::Node& root, graphics::Vector3 middle);
  void addLabels(scene::Node& root);
  scene::Node& orbit() const;
  scene::Node& labels() const;
  scene::Node& carrier() const;
  void adaptPlanes();

  MapView& view_;
  bool adapted_ = false;  // whether the clip planes differ from those of a new scene
};

}  // namespace orivanta

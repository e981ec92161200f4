// A scene, hit tests and the projection of scene points to a view.
// Public header.
#pragma once

#include <memory>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta::scene {

/// A tree of nodes.
class ORIVANTA_API Scene {
 public:
  /// Creates a scene with an empty root node.
  static std::shared_ptr<Scene> make();

  const std::shared_ptr<Node>& rootNode() const { return rootNode_; }  ///< never null

 private:
  Scene();

  std::shared_ptr<Node> rootNode_;
};

/// A ray from `origin` to `origin + direction`, in the scene's space.
struct Ray {
  graphics::Vector3 origin;     ///< where the ray starts
  graphics::Vector3 direction;  ///< from its start to its end
};

/// The intersection of a ray and a geometry element.
struct Hit {
  std::shared_ptr<Node> node;  ///< the node of the geometry; never null
  std::size_t geometryIndex;   ///< index of the element
  graphics::Vector3 position;  ///< in the scene's space
  float distance;              ///< from 0 at the ray's origin to 1 at its end
};

/// Returns one hit for each geometry element that the ray intersects, at its nearest triangle,
/// sorted by distance. Among hits at the same distance, those of later nodes come first, because
/// later nodes are drawn over earlier ones. Both sides of triangles can be hit. Hidden nodes are
/// ignored. Any thread.
ORIVANTA_API std::vector<Hit> hitTest(const Scene& scene, const Ray& ray);

/// The projection of a scene by a camera to a view of some size. It does not change when the camera
/// changes.
class ORIVANTA_API Viewpoint {
 public:
  /// Creates a viewpoint. If `pointOfView` has no camera, that is a fatal error.
  Viewpoint(const Node& pointOfView, graphics::Size view);

  const graphics::Matrix4& viewMatrix() const { return view_; }  ///< scene to camera
  const graphics::Matrix4& projectionMatrix() const {
    return projection_;
  }  ///< camera to clip space

  /// Returns the point of the view (points, y downwards) at which a scene point appears, and its
  /// depth, from 0 at the near plane to 1 at the far plane. For a point in the camera's plane, the
  /// result contains infinities or NaN. A point behind the camera is mirrored, with a depth greater
  /// than 1.
  graphics::Vector3 project(const graphics::Vector3& point) const;

  /// Returns the ray from the near plane to the far plane through a point of the view.
  Ray ray(graphics::Point viewPoint) const;

 private:
  graphics::Matrix4 view_;
  graphics::Matrix4 projection_;
  graphics::Size size_;
};

/// Returns the first descendant of the root that has a camera, parents before their children, or
/// null if there is none.
ORIVANTA_API std::shared_ptr<Node> findPointOfView(const Scene& scene);

}  // namespace orivanta::scene

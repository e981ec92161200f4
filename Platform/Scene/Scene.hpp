// A scene, and what is asked of it without drawing: what a ray hits, where a point shows.
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
  /// A scene with an empty root.
  static std::shared_ptr<Scene> make();

  const std::shared_ptr<Node>& rootNode() const { return rootNode_; }  ///< never null

 private:
  Scene();

  std::shared_ptr<Node> rootNode_;
};

/// From `origin` to `origin + direction`, both in the scene's space.
struct Ray {
  graphics::Vector3 origin;     ///< where the ray starts
  graphics::Vector3 direction;  ///< from its start to its end
};

/// Where a ray meets a geometry element.
struct Hit {
  std::shared_ptr<Node> node;  ///< the node of the geometry; never null
  std::size_t geometryIndex;   ///< of the element
  graphics::Vector3 position;  ///< in the scene's space
  float distance;              ///< from 0 at the ray's origin to 1 at its end
};

/// One hit for each geometry element that the ray meets, at its nearest triangle, nearest first. Of
/// hits at the same distance those of later nodes come first, as they are drawn over earlier ones.
/// Both sides of a triangle count, hidden nodes do not. Any thread.
ORIVANTA_API std::vector<Hit> hitTest(const Scene& scene, const Ray& ray);

/// How a camera sees a scene in a view of some size. A value: it does not follow the camera.
class ORIVANTA_API Viewpoint {
 public:
  /// `pointOfView` has a camera; without one it is a fatal error.
  Viewpoint(const Node& pointOfView, graphics::Size view);

  const graphics::Matrix4& viewMatrix() const { return view_; }  ///< scene to camera
  const graphics::Matrix4& projectionMatrix() const {
    return projection_;
  }  ///< camera to clip space

  /// The point of the view (points, y downwards) where a scene point shows, and its depth from 0
  /// at the near plane to 1 at the far one. A point in the plane of the camera has infinities or
  /// NaN; one behind it is mirrored, with a depth above 1.
  graphics::Vector3 project(const graphics::Vector3& point) const;

  /// From the near plane to the far one, through a point of the view.
  Ray ray(graphics::Point viewPoint) const;

 private:
  graphics::Matrix4 view_;
  graphics::Matrix4 projection_;
  graphics::Size size_;
};

/// The first node with a camera below the root, parents before their children; null without one.
ORIVANTA_API std::shared_ptr<Node> findPointOfView(const Scene& scene);

}  // namespace orivanta::scene

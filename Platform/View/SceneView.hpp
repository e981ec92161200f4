// A view that shows a 3D scene with a 2D overlay scene in front of it.
// Public header.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Platform/Sprite/Scene.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// Receives callbacks from the renderer of a scene view.
class ORIVANTA_API SceneRendererDelegate {
 public:
  virtual ~SceneRendererDelegate() = default;

  /// Called before each frame on the thread that draws, under a transaction. `time`: seconds.
  virtual void willRenderScene(SceneView& view, const std::shared_ptr<scene::Scene>& scene,
                               double time) = 0;
};

/// A view that shows a scene from its first camera. The default background is white.
class ORIVANTA_API SceneView : public View {
 public:
  explicit SceneView(graphics::Rect frame = {});  ///< without a scene
  explicit SceneView(const Coder& coder);         ///< see `View`

  std::shared_ptr<scene::Scene> scene() const;                 ///< null until set
  void setScene(std::shared_ptr<scene::Scene> scene);          ///< may be null
  std::shared_ptr<sprite::Scene> overlayScene() const;         ///< null until set
  void setOverlayScene(std::shared_ptr<sprite::Scene> scene);  ///< may be null

  /// Not owned, null until set. A delegate must be replaced before it is destroyed.
  SceneRendererDelegate* rendererDelegate() const;

  /// Replaces the delegate; null removes it.
  void setRendererDelegate(SceneRendererDelegate* delegate);

  /// Returns the current viewpoint, or nothing if there is no scene or no camera.
  std::optional<scene::Viewpoint> viewpoint() const;

  /// Returns the hits under a point of the view, nearest first. Returns an empty list if there is
  /// no scene or no camera.
  std::vector<scene::Hit> hits(graphics::Point point) const;

  /// Returns the point of the view at which a scene point appears, and its depth (see
  /// `scene::Viewpoint::project`). Returns zeros if there is no scene or no camera.
  graphics::Vector3 project(const graphics::Vector3& point) const;

  /// Prepares nodes in the background, so that drawing them for the first time does not delay a
  /// frame, and then calls `completion` on the main queue. The nodes must not be changed until
  /// then. `success` is false if there was not enough memory; the nodes are drawn nevertheless.
  static void prepare(std::vector<std::shared_ptr<scene::Node>> nodes,
                      std::function<void(bool success)> completion);

  /// Passes the touches to the overlay scene, in the overlay's coordinates, and then to the parent.
  void touchesBegan(std::span<const Touch> touches) override;

  void draw(Canvas& canvas) override;
  bool isAnimating() const override;  ///< true if a material of a visible node is animated

 protected:
  /// Compares the fields of the camera and the lights, whose changes are not counted.
  bool differsFromFrame() const override;
  void storeFrame() override;

 private:
  // What can change without being counted.
  struct Contents {
    std::vector<std::weak_ptr<scene::Material>> animated;
    std::vector<std::weak_ptr<const scene::Light>> lights;
    std::weak_ptr<const scene::Camera> camera;
  };
  // The fields of the camera and of the lights.
  struct Fields {
    std::optional<scene::Camera> camera;
    std::vector<scene::Light> lights;

    friend bool operator==(const Fields&, const Fields&) = default;
  };

  const Contents& contents() const;
  Fields fields() const;

  std::shared_ptr<scene::Scene> scene_;
  std::shared_ptr<sprite::Scene> overlayScene_;
  SceneRendererDelegate* rendererDelegate_ = nullptr;
  Fields drawn_;                              // in the last frame
  mutable Contents contents_;                 // of the scene, as of `contentsChange_`
  mutable std::uint64_t contentsChange_ = 0;  // the change count when they were collected
};

}  // namespace orivanta::view

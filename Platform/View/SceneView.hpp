// A view that shows a 3D scene, with a 2D scene over it.
// Public header.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "Platform/Scene/Scene.hpp"
#include "Platform/Sprite/Scene.hpp"
#include "Platform/View/View.hpp"

namespace orivanta::view {

/// Told by whoever draws a scene view.
class ORIVANTA_API SceneRendererDelegate {
 public:
  virtual ~SceneRendererDelegate() = default;

  /// Before each frame, on the thread that draws, under a transaction. `time` in seconds.
  virtual void willRenderScene(SceneView& view, const std::shared_ptr<scene::Scene>& scene,
                               double time) = 0;
};

/// Seen from the scene's first camera. White behind the scene until another background is set.
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

  /// How the scene is seen now; nothing without a scene or a camera.
  std::optional<scene::Viewpoint> viewpoint() const;

  /// What lies under a point of the view, nearest first; nothing without a scene or a camera.
  std::vector<scene::Hit> hits(graphics::Point point) const;

  /// The point of the view where a scene point shows, and its depth (`scene::Viewpoint::project`);
  /// zeros without a scene or a camera.
  graphics::Vector3 project(const graphics::Vector3& point) const;

  /// Makes nodes ready to be drawn without a pause, in the background, and then calls `completion`
  /// on the main queue. The nodes must not be changed before. Without success, for want of memory,
  /// the nodes are drawn all the same.
  static void prepare(std::vector<std::shared_ptr<scene::Node>> nodes,
                      std::function<void(bool success)> completion);

  /// Tells the overlay, in its own coordinates, then the parent.
  void touchesBegan(std::span<const Touch> touches) override;

  void draw(Canvas& canvas) override;
  bool isAnimating() const override;  ///< while a material of a node in sight of the scene moves

 private:
  using Materials = std::vector<std::weak_ptr<scene::Material>>;
  const Materials& animatedMaterials() const;

  std::shared_ptr<scene::Scene> scene_;
  std::shared_ptr<sprite::Scene> overlayScene_;
  SceneRendererDelegate* rendererDelegate_ = nullptr;
  mutable Materials animated_;                // of the scene, as of the change below
  mutable std::uint64_t animatedChange_ = 0;  // the count of changes when they were looked for
};

}  // namespace orivanta::view

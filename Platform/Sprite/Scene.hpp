// A 2D scene that is shown over a view.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Sprite/Node.hpp"

namespace orivanta::sprite {

/// A 2D scene. Its origin is the lower left corner. It is stretched to the whole view that shows
/// it.
class ORIVANTA_API Scene : public Node {
 public:
  static std::shared_ptr<Scene> make(graphics::Size size);  ///< an empty scene

  graphics::Size size() const;                 ///< points
  void setSize(graphics::Size size);           ///< nodes keep their positions
  graphics::Rect localFrame() const override;  ///< from the origin to the size

  /// Returns the foremost node whose frame contains a point of the scene, or the scene itself if
  /// there is none. Hidden nodes and their descendants are ignored. Nodes with a larger sum of z
  /// positions are in front. If the sums are equal, children are in front of their parents, and
  /// later children are in front of earlier ones.
  std::shared_ptr<Node> nodeAt(graphics::Point point);

  /// Converts a point of the scene to a view of this size that shows the scene (points, y
  /// downwards). If the scene is empty, the result contains infinities or NaN.
  graphics::Point convertToView(graphics::Point point, graphics::Size view) const;

  /// The inverse of `convertToView`. If the view is empty, the result contains infinities or NaN.
  graphics::Point convertFromView(graphics::Point point, graphics::Size view) const;

  /// Called by the view that shows the scene when fingers have landed. `touches` are positions in
  /// the scene's coordinates. Does nothing unless overridden. Main thread.
  virtual void touchesBegan(std::span<const graphics::Point> touches);

  /// Called before each frame on the thread that draws. `currentTime`: seconds. Does nothing unless
  /// overridden.
  virtual void update(double currentTime);

 protected:
  /// Creates an empty scene, for subclasses.
  explicit Scene(graphics::Size size);

 private:
  graphics::Size size_;
};

}  // namespace orivanta::sprite

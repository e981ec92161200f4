// A 2D scene that lies over a view.
// Public header.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Sprite/Node.hpp"

namespace orivanta::sprite {

/// The origin is the lower left corner. The scene is stretched over the whole view that shows it.
class ORIVANTA_API Scene : public Node {
 public:
  static std::shared_ptr<Scene> make(graphics::Size size);  ///< an empty scene

  graphics::Size size() const;                 ///< points
  void setSize(graphics::Size size);           ///< nodes keep their positions
  graphics::Rect localFrame() const override;  ///< from the origin to the size

  /// The foremost node whose frame holds a point of the scene, hidden ones and what is below them
  /// left out; the scene itself when there is none. In front lies the larger sum of z positions;
  /// among equals children lie before their parents and later children before earlier ones.
  std::shared_ptr<Node> nodeAt(graphics::Point point);

  /// Where a point of the scene is in a view of this size (points, y downwards) that shows the
  /// scene. An empty scene gives infinities or NaN.
  graphics::Point convertToView(graphics::Point point, graphics::Size view) const;

  /// The reverse of `convertToView`. An empty view gives infinities or NaN.
  graphics::Point convertFromView(graphics::Point point, graphics::Size view) const;

  /// Called by the view that shows the scene with fingers that were put down, in the scene's
  /// coordinates. Does nothing unless overridden. Main thread.
  virtual void touchesBegan(std::span<const graphics::Point> touches);

  /// Called before each frame with its time in seconds. Does nothing unless overridden. The thread
  /// that draws.
  virtual void update(double currentTime);

 protected:
  /// For subclasses: an empty scene.
  explicit Scene(graphics::Size size);

 private:
  graphics::Size size_;
};

}  // namespace orivanta::sprite

// A 2D scene that lies over a view.
#pragma once

#include <memory>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Sprite/Node.hpp"

namespace orivanta::sprite {

/// The origin is the lower left corner. The scene is stretched over the whole view that shows it.
class ORIVANTA_API Scene : public Node {
 public:
  static std::shared_ptr<Scene> make(graphics::Size size);

  graphics::Size size() const;
  void setSize(graphics::Size size);           ///< nodes keep their positions
  graphics::Rect localFrame() const override;  ///< from the origin to the size

  /// The foremost node whose frame holds a point of the scene, hidden ones and what is below them
  /// left out; the scene itself when there is none. In front lies the larger sum of z positions;
  /// among equals children lie before their parents and later children before earlier ones.
  std::shared_ptr<Node> nodeAt(graphics::Point point);

  /// A point of the scene in a view of some size (points, y downwards) that shows it, and back. An
  /// empty scene or view gives infinities or NaN.
  graphics::Point convertToView(graphics::Point point, graphics::Size view) const;
  graphics::Point convertFromView(graphics::Point point, graphics::Size view) const;

  /// Called by the view that shows the scene: fingers that were put down, in the scene's
  /// coordinates (main thread), and before each frame with its time in seconds (the thread that
  /// draws). Both do nothing unless overridden.
  virtual void touchesBegan(std::span<const graphics::Point> touches);
  virtual void update(double currentTime);

 protected:
  explicit Scene(graphics::Size size);

 private:
  graphics::Size size_;
};

}  // namespace orivanta::sprite

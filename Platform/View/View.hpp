// A view: a rectangle on the screen that draws its contents, has children and receives touches.
// Public header.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/View/Coder.hpp"
#include "Platform/View/Fwd.hpp"
#include "Platform/View/LayoutConstraint.hpp"
#include "Platform/View/Touch.hpp"

namespace orivanta::view {

/// Returns whether two recognizers may run simultaneously.
using SimultaneousRule =
    std::function<bool(const GestureRecognizer& one, const GestureRecognizer& other)>;

/// The base class of views. Frames are in points of the parent view, with the origin in its upper
/// left corner and y downwards. Views are held by shared pointers; a parent owns its children. Use
/// views on the main thread. Drawing, which includes layout, may happen on another thread;
/// `graphics::Transaction` synchronizes changes with the renderer.
class ORIVANTA_API View : public std::enable_shared_from_this<View> {
 public:
  /// Creates a view without a parent. `frame`: points.
  explicit View(graphics::Rect frame = {});

  /// Creates a view with the frame that an archive contains under "x", "y", "width" and "height".
  /// Missing values are 0.
  explicit View(const Coder& coder);
  virtual ~View();
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  graphics::Rect frame() const;         ///< in the parent view
  void setFrame(graphics::Rect frame);  ///< negative sides count as 0
  graphics::Rect bounds() const;        ///< the frame's size at the origin

  double alpha() const;         ///< from 0 to 1, multiplied from parents to children
  void setAlpha(double alpha);  ///< see `alpha`; 1 until set
  std::optional<graphics::Color> backgroundColor() const;         ///< none until set
  void setBackgroundColor(std::optional<graphics::Color> color);  ///< none removes it
  bool isHidden() const;                         ///< includes its children; false until set
  void setHidden(bool hidden);                   ///< with its children
  bool isUserInteractionEnabled() const;         ///< true until set; if false, touches pass through
  void setUserInteractionEnabled(bool enabled);  ///< see `isUserInteractionEnabled`

  View* superview() const;                              ///< null for the topmost view
  std::vector<std::shared_ptr<View>> subviews() const;  ///< from the back to the front

  /// Adds a child in front of the other children. It is first removed from its previous parent.
  /// Null, the view itself or one of its ancestors is a fatal error.
  void addSubview(const std::shared_ptr<View>& subview);
  void removeFromSuperview();  ///< also removes the parent's constraints on this view
  void bringSubviewToFront(const View& subview);  ///< does nothing unless it is a child

  /// If true (the default), layout does not change the frame. If false, constraints determine it.
  bool translatesAutoresizingMaskIntoConstraints() const;

  /// See `translatesAutoresizingMaskIntoConstraints`.
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates);

  /// Adds a constraint on this view and its children. A constraint on any other view is a fatal
  /// error.
  void addConstraint(const LayoutConstraint& constraint);

  /// Adds several constraints in the given order.
  void addConstraints(std::span<const LayoutConstraint> constraints);
  std::vector<LayoutConstraint> constraints() const;  ///< in the order of adding

  /// Solves the constraints of this view and then those of its descendants, for the views that have
  /// changed since the last layout. Hosts call it after they change a size. The renderer calls it
  /// before each frame.
  void layoutIfNeeded();

  /// Adds a recognizer. It is first removed from its previous view. Null is a fatal error.
  void addGestureRecognizer(const std::shared_ptr<GestureRecognizer>& recognizer);

  /// Removes a recognizer. A running gesture is canceled first. Does nothing unless the recognizer
  /// belongs to this view.
  void removeGestureRecognizer(const GestureRecognizer& recognizer);

  /// Returns the recognizers in the order of adding.
  const std::vector<std::shared_ptr<GestureRecognizer>>& gestureRecognizers() const {
    return gestureRecognizers_;
  }

  /// Sets the rule that decides whether two recognizers of this view or of its descendants may run
  /// simultaneously. The rule is called with the two recognizers in either order. Without a rule,
  /// no two may run simultaneously.
  void allowSimultaneous(SimultaneousRule rule);

  /// Returns the rule. It is empty until set.
  const SimultaneousRule& simultaneousRule() const { return simultaneousRule_; }

  /// Converts a point of this view to the coordinates of another view. If the views belong to
  /// different trees, the upper left corners of their topmost views are treated as the same point.
  graphics::Point convert(graphics::Point point, const View& to) const;

  /// Returns the foremost view at a point of this view that receives touches: this view or a
  /// descendant. Returns null if the point is outside this view, or if this view is hidden, nearly
  /// transparent (alpha less than 0.01) or does not receive touches.
  std::shared_ptr<View> viewAt(graphics::Point point);

  /// Called when fingers have landed on this view, whether or not its recognizers use them. By
  /// default, this and the next two functions call the same function of the parent view.
  virtual void touchesBegan(std::span<const Touch> touches);

  /// Called when fingers that landed on this view have moved.
  virtual void touchesMoved(std::span<const Touch> touches);

  /// Called when fingers that landed on this view have left.
  virtual void touchesEnded(std::span<const Touch> touches);

  /// Draws the view without its children. The renderer draws the children over it. The default
  /// implementation fills the bounds with the background color; an override calls it first unless
  /// it covers the bounds. Called under a transaction.
  virtual void draw(Canvas& canvas);

  /// Returns whether the view, or a descendant that is not hidden, changes its appearance over time
  /// without being modified.
  virtual bool isAnimating() const;

  /// Returns whether a new frame could differ from the last frame that a renderer drew of this
  /// view. This is the case if the view has not been drawn yet, if it is animating, or if a scene,
  /// a sprite, a view, or a field of the camera or a light has changed since. Changes are counted
  /// for the whole process, so a view may need a frame because of another view. Hosts can skip
  /// frames while this is false. Any thread.
  bool needsFrame() const;

  /// Makes `needsFrame` true until a frame begins. Views that override `draw` call it when their
  /// appearance changes. Any thread; no transaction is required.
  static void setNeedsFrame();

  /// Called by a renderer before it lays out and gathers a frame of this view, under the same
  /// transaction.
  void frameBegins();

  /// Called by a renderer, under the transaction in which it has gathered a frame of this view.
  void frameGathered();

 protected:
  /// Called after the children of this view are laid out and before their descendants are. Does
  /// nothing unless overridden. Called under a transaction.
  virtual void didLayOut();

  /// Returns whether this view or a visible descendant differs from the last frame in something
  /// that is not counted as a change. Overrides call the base class. Called under a transaction.
  virtual bool differsFromFrame() const;

  /// Stores what `differsFromFrame` compares, for this view and its descendants. Overrides call the
  /// base class. Called under the transaction in which a frame was gathered.
  virtual void storeFrame();

 private:
  void detach(const View& child);

  graphics::Rect frame_;
  double alpha_ = 1.0;
  std::optional<graphics::Color> backgroundColor_;
  bool hidden_ = false;
  bool userInteractionEnabled_ = true;
  bool translatesAutoresizingMask_ = true;
  bool needsLayout_ = true;
  std::uint64_t drawnChange_ = 0;   // change count of the last frame; 0 before the first one
  std::uint64_t drawnRequest_ = 0;  // number of calls of `setNeedsFrame` before the last frame
  View* superview_ = nullptr;
  std::vector<std::shared_ptr<View>> subviews_;
  std::vector<LayoutConstraint> constraints_;
  std::vector<std::shared_ptr<GestureRecognizer>> gestureRecognizers_;
  SimultaneousRule simultaneousRule_;
};

/// Returns the topmost ancestor of a view, or the view itself if it has no parent.
ORIVANTA_API const View& topmostView(const View& view);

}  // namespace orivanta::view

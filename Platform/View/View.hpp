// A rectangle on the screen that draws itself, its children, and receives touches.
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

/// Whether two recognizers may run at once.
using SimultaneousRule =
    std::function<bool(const GestureRecognizer& one, const GestureRecognizer& other)>;

/// Frames are points of the parent view, from its upper left corner with y downwards. Held by
/// handle; a parent owns its children. Main thread, apart from drawing, which also lays out:
/// changes and the walk of a renderer are kept apart by `graphics::Transaction`.
class ORIVANTA_API View : public std::enable_shared_from_this<View> {
 public:
  /// A view without a parent. `frame`: points.
  explicit View(graphics::Rect frame = {});

  /// The frame that an archive holds under "x", "y", "width" and "height"; 0 for what is missing.
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
  bool isHidden() const;                         ///< with its children; false until set
  void setHidden(bool hidden);                   ///< with its children
  bool isUserInteractionEnabled() const;         ///< true until set; false lets touches through
  void setUserInteractionEnabled(bool enabled);  ///< see `isUserInteractionEnabled`

  View* superview() const;                              ///< null at the top
  std::vector<std::shared_ptr<View>> subviews() const;  ///< from the back to the front

  /// In front of the other children; taken from a former parent first. Null, the view itself or one
  /// above it is a fatal error.
  void addSubview(const std::shared_ptr<View>& subview);
  void removeFromSuperview();                     ///< drops the parent's constraints on this view
  void bringSubviewToFront(const View& subview);  ///< nothing unless it is a child

  /// If true, as it is until set, the frame stays as it was set. If false, constraints determine
  /// it.
  bool translatesAutoresizingMaskIntoConstraints() const;

  /// See `translatesAutoresizingMaskIntoConstraints`.
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates);

  /// On this view and its children; another view is a fatal error.
  void addConstraint(const LayoutConstraint& constraint);

  /// Adds several constraints, in their order.
  void addConstraints(std::span<const LayoutConstraint> constraints);
  std::vector<LayoutConstraint> constraints() const;  ///< in the order of adding

  /// Solves the constraints of this view and, then, of those below it, where something has changed
  /// since. Hosts call it after they changed a size, the renderer before each frame.
  void layoutIfNeeded();

  /// Taken from a former view first. Null is a fatal error.
  void addGestureRecognizer(const std::shared_ptr<GestureRecognizer>& recognizer);

  /// One under way is canceled first. Nothing unless it belongs to this view.
  void removeGestureRecognizer(const GestureRecognizer& recognizer);

  /// In the order of adding.
  const std::vector<std::shared_ptr<GestureRecognizer>>& gestureRecognizers() const {
    return gestureRecognizers_;
  }

  /// Whether two recognizers of this view or of views below it may run at once; asked with the two
  /// in either order. None may until a rule is set.
  void allowSimultaneous(SimultaneousRule rule);

  /// Empty until set.
  const SimultaneousRule& simultaneousRule() const { return simultaneousRule_; }

  /// A point of this view in another one. Views of two trees count as if the upper left corners of
  /// their topmost views were one.
  graphics::Point convert(graphics::Point point, const View& to) const;

  /// The foremost view at a point of this view that takes touches: itself or one below; null
  /// outside of it, when it is hidden, all but transparent (alpha under 0.01) or takes none.
  std::shared_ptr<View> viewAt(graphics::Point point);

  /// Called with fingers that were put down on this view, whatever its recognizers make of them.
  /// Like the next two, passes them on to the parent view unless overridden.
  virtual void touchesBegan(std::span<const Touch> touches);

  /// Called with fingers that have moved since they were put down on this view.
  virtual void touchesMoved(std::span<const Touch> touches);

  /// Called with fingers that were put down on this view and have left.
  virtual void touchesEnded(std::span<const Touch> touches);

  /// Draws the view without its children, which whoever draws the tree draws over it. Fills the
  /// bounds with the background color; an overriding view calls this first, unless it covers them.
  /// Under a transaction.
  virtual void draw(Canvas& canvas);

  /// Whether the view, or one below it that is not hidden, looks different at a later time though
  /// nothing was changed.
  virtual bool isAnimating() const;

  /// Whether a frame drawn now could differ from the last one that a renderer drew of this view:
  /// the view has not been drawn yet, `isAnimating`, or a scene, a sprite or a view has changed
  /// since. Changes count for all views of the process, so a view may need a frame because of
  /// another one. Hosts that draw only when this is true save the others. Any thread.
  bool needsFrame() const;

  /// Makes `needsFrame` true. Views that draw themselves call it when they come to look different.
  static void setNeedsFrame();

  /// A renderer calls it, under the transaction in which it has gathered a frame of this view.
  void frameGathered();

 protected:
  /// Called when the children of this view have their places, before those below them. Does nothing
  /// unless overridden. Under a transaction.
  virtual void didLayOut();

 private:
  void detach(const View& child);

  graphics::Rect frame_;
  double alpha_ = 1.0;
  std::optional<graphics::Color> backgroundColor_;
  bool hidden_ = false;
  bool userInteractionEnabled_ = true;
  bool translatesAutoresizingMask_ = true;
  bool needsLayout_ = true;
  std::uint64_t drawnChange_ = 0;  // the count of changes that the last frame shows; 0 before it
  View* superview_ = nullptr;
  std::vector<std::shared_ptr<View>> subviews_;
  std::vector<LayoutConstraint> constraints_;
  std::vector<std::shared_ptr<GestureRecognizer>> gestureRecognizers_;
  SimultaneousRule simultaneousRule_;
};

/// The topmost view above a view; itself at the top.
ORIVANTA_API const View& topmostView(const View& view);

}  // namespace orivanta::view

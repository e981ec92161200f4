// Fingers made into gestures: taps, pans, pinches and rotations.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/Fwd.hpp"
#include "Platform/View/Touch.hpp"

namespace orivanta::view {

enum class GestureState { possible, began, changed, ended, cancelled, failed };

/// Belongs to one view. Main thread. Its touches, and when to begin, change, end or fail, come
/// from `TouchDispatcher`; a subclass decides what they mean and sets its state.
class ORIVANTA_API GestureRecognizer {
 public:
  using Action = std::function<void(GestureRecognizer&)>;

  GestureRecognizer() = default;
  virtual ~GestureRecognizer() = default;
  GestureRecognizer(const GestureRecognizer&) = delete;
  GestureRecognizer& operator=(const GestureRecognizer&) = delete;

  /// Called, in the order of adding, whenever the recogniser begins, changes, ends or is
  /// cancelled. `name` tells actions apart.
  void addTarget(std::string name, Action action);
  std::vector<std::string> actionNames() const;

  GestureState state() const { return state_; }

  /// For subclasses, and for whoever plays a gesture without fingers: calls the actions for every
  /// state but possible and failed.
  void setState(GestureState state);

  View* view() const { return view_; }  ///< null before it is added to one

  /// The middle of the recogniser's fingers in a view's coordinates.
  virtual graphics::Point location(const View& in) const;
  std::size_t numberOfTouches() const { return touches_.size(); }

 protected:
  struct Finger {
    std::uint64_t identifier;
    graphics::Point start;
    graphics::Point position;
    double startTime;
  };

  const std::vector<Finger>& fingers() const { return touches_; }
  graphics::Point centroid() const;  ///< in the topmost view; of the last fingers when none is left

  /// One touch of this recogniser arrived; `fingers` already tells of it (an ended one is gone).
  virtual void touchChanged(const Touch& touch) = 0;

  /// All fingers have left: back to what it was before the first.
  virtual void reset();

 private:
  friend class TouchDispatcher;
  friend class View;

  void receive(const Touch& touch);

  View* view_ = nullptr;
  GestureState state_ = GestureState::possible;
  std::vector<std::pair<std::string, Action>> targets_;
  std::vector<Finger> touches_;
  graphics::Point lastCentroid_;
};

/// Ends once enough fingers have touched often enough, each for at most 0.75 seconds, without
/// moving further than 10 points, and at most 0.35 seconds apart.
class ORIVANTA_API TapGestureRecognizer : public GestureRecognizer {
 public:
  std::size_t numberOfTapsRequired = 1;
  std::size_t numberOfTouchesRequired = 1;

 protected:
  void touchChanged(const Touch& touch) override;
  void reset() override;

 private:
  std::size_t taps_ = 0;
  std::size_t mostFingers_ = 0;
  double lastTapTime_ = 0.0;
};

/// Begins once the fingers' middle has moved 10 points with a number of fingers in range.
class ORIVANTA_API PanGestureRecognizer : public GestureRecognizer {
 public:
  std::size_t minimumNumberOfTouches = 1;
  std::size_t maximumNumberOfTouches = SIZE_MAX;

  /// Points moved since the gesture began; fingers that come or go do not make it jump.
  graphics::Point translation() const { return translation_; }
  void setTranslation(graphics::Point translation) { translation_ = translation; }

 protected:
  void touchChanged(const Touch& touch) override;
  void reset() override;

 private:
  graphics::Point translation_;
};

/// Begins once the distance of two fingers has changed by 8 points.
class ORIVANTA_API PinchGestureRecognizer : public GestureRecognizer {
 public:
  double scale() const { return scale_; }  ///< of the distance, since the gesture began
  void setScale(double scale) { scale_ = scale; }

 protected:
  void touchChanged(const Touch& touch) override;
  void reset() override;

 private:
  double scale_ = 1.0;
};

/// Begins once the line between two fingers has turned by 5 degrees.
class ORIVANTA_API RotationGestureRecognizer : public GestureRecognizer {
 public:
  double rotation() const { return rotation_; }  ///< radians clockwise, since the gesture began
  void setRotation(double rotation) { rotation_ = rotation; }

 protected:
  void touchChanged(const Touch& touch) override;
  void reset() override;

 private:
  double rotation_ = 0.0;
};

}  // namespace orivanta::view

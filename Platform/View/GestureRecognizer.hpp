// The base class of gesture recognizers: taps, pans, pinches and rotations.
// Public header.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/View/Fwd.hpp"
#include "Platform/View/Touch.hpp"

namespace orivanta::view {

/// The state of a gesture. The values are 0 to 5.
enum class GestureState {
  possible,  ///< not recognized yet
  began,     ///< a continuous gesture has begun
  changed,   ///< a continuous gesture has continued
  ended,     ///< the gesture is complete
  canceled,  ///< the gesture was interrupted
  failed     ///< the fingers do not make this gesture
};

/// Recognizes a gesture in one view. Main thread. A `TouchDispatcher` delivers the touches of the
/// view and its descendants, and decides which of several recognizers may begin. A subclass
/// interprets the touches and sets the state.
class ORIVANTA_API GestureRecognizer {
 public:
  /// An action must not throw. It may change views, recognizers and their actions, but must not
  /// destroy the dispatcher.
  using Action = std::function<void(GestureRecognizer&)>;

  GestureRecognizer() = default;
  virtual ~GestureRecognizer() = default;
  GestureRecognizer(const GestureRecognizer&) = delete;
  GestureRecognizer& operator=(const GestureRecognizer&) = delete;

  /// Adds an action. Actions are called in the order of adding whenever the recognizer begins,
  /// changes, ends or is canceled. `name` identifies the action.
  void addTarget(std::string name, Action action);
  std::vector<std::string> actionNames() const;  ///< in the order of adding

  /// Returns the state of the gesture.
  GestureState state() const { return state_; }

  /// Sets the state, and calls the actions unless the state is possible or failed. For subclasses,
  /// and for code that simulates a gesture without fingers. While the recognizer has fingers, it
  /// fails instead of beginning or ending if another recognizer excludes it.
  void setState(GestureState state);

  /// Returns whether the gesture has begun and has neither ended nor been canceled.
  bool isRunning() const {
    return state_ == GestureState::began || state_ == GestureState::changed;
  }

  View* view() const { return view_; }  ///< null until it is added to a view

  /// Returns the center of the recognizer's fingers in a view's coordinates. If no finger is left,
  /// returns the last center.
  virtual graphics::Point location(const View& in) const;

  /// Returns the number of fingers that currently belong to the recognizer.
  std::size_t numberOfTouches() const { return fingers_.size(); }

 protected:
  /// A finger that is down.
  struct Finger {
    std::uint64_t identifier;  ///< as in `Touch`
    graphics::Point start;     ///< where it landed, in points of the topmost view
    graphics::Point position;  ///< where it is now, in points of the topmost view
    double startTime;          ///< when it landed, in seconds
  };

  const std::vector<Finger>& fingers() const { return fingers_; }  ///< in the order of landing
  graphics::Point centroid() const { return centroid_; }  ///< as `location`, in the topmost view

  /// Called when a finger has landed. It is the last of `fingers`. This and the next two functions
  /// are called only while the recognizer is possible or running. `time`: seconds.
  virtual void fingerLanded(double time) = 0;

  /// Called when some of `fingers` have moved.
  virtual void fingersMoved() = 0;

  /// Called when a finger has left. It is no longer one of `fingers`.
  virtual void fingerLeft(const Finger& finger, double time, bool canceled) = 0;

  /// Called after a gesture to clear what was measured. `state` still has its last value.
  virtual void reset() {}

  /// Returns whether a recognizer that has failed or ended may begin again with the fingers that
  /// are down, after their number has changed and no other recognizer excludes it. Otherwise it
  /// cannot begin again until all of its fingers have left.
  virtual bool canStartOver() const { return false; }

 private:
  friend class TouchDispatcher;
  friend class View;

  // All touches have the same phase. There are several only if that phase is `moved`.
  void receive(std::span<const Touch> touches, TouchDispatcher& dispatcher);
  void land(const Touch& touch);
  void move(std::span<const Touch> touches);
  void leave(const Touch& touch);
  bool isOpen() const { return state_ == GestureState::possible || isRunning(); }
  std::vector<Finger>::iterator find(std::uint64_t identifier);
  void updateCentroid();
  void startOver();
  void cancel();
  void forgetFingers();

  View* view_ = nullptr;
  TouchDispatcher* dispatcher_ = nullptr;  // set during the delivery of a touch
  GestureState state_ = GestureState::possible;
  std::vector<std::pair<std::string, Action>> targets_;
  std::vector<Finger> fingers_;
  graphics::Point centroid_;
};

}  // namespace orivanta::view

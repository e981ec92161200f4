// Fingers made into a gesture: what taps, pans, pinches and rotations have in common.
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

/// How far a gesture is. The values are 0 to 5.
enum class GestureState {
  possible,   ///< not recognized yet
  began,      ///< a continuous gesture has begun
  changed,    ///< a continuous gesture has gone on
  ended,      ///< the gesture is complete
  cancelled,  ///< the gesture was interrupted
  failed      ///< the fingers do something else
};

/// Belongs to one view. Main thread. A `TouchDispatcher` brings it the fingers of its view and of
/// the views below, and decides which of several recognizers may begin; a subclass decides what
/// the fingers mean and sets its state.
class ORIVANTA_API GestureRecognizer {
 public:
  /// Must not throw. May change views, recognizers and their actions, but not end the dispatcher.
  using Action = std::function<void(GestureRecognizer&)>;

  GestureRecognizer() = default;
  virtual ~GestureRecognizer() = default;
  GestureRecognizer(const GestureRecognizer&) = delete;
  GestureRecognizer& operator=(const GestureRecognizer&) = delete;

  /// Called, in the order of adding, whenever the recognizer begins, changes, ends or is
  /// canceled. `name` tells actions apart.
  void addTarget(std::string name, Action action);
  std::vector<std::string> actionNames() const;  ///< in the order of adding

  /// How far the gesture is.
  GestureState state() const { return state_; }

  /// For subclasses, and for whoever plays a gesture without fingers: calls the actions for every
  /// state but possible and failed. With fingers, a recognizer that another one holds back fails
  /// instead of beginning or ending.
  void setState(GestureState state);

  /// Whether it has begun and neither ended nor been canceled.
  bool isRunning() const {
    return state_ == GestureState::began || state_ == GestureState::changed;
  }

  View* view() const { return view_; }  ///< null before it is added to one

  /// The middle of the recognizer's fingers in a view's coordinates; of the last ones when none is
  /// left.
  virtual graphics::Point location(const View& in) const;

  /// The number of fingers that belong to the recognizer now.
  std::size_t numberOfTouches() const { return fingers_.size(); }

 protected:
  /// A finger that is down.
  struct Finger {
    std::uint64_t identifier;  ///< as in `Touch`
    graphics::Point start;     ///< where it landed, points of the topmost view
    graphics::Point position;  ///< where it is now, points of the topmost view
    double startTime;          ///< when it landed, seconds
  };

  const std::vector<Finger>& fingers() const { return fingers_; }  ///< in the order of landing
  graphics::Point centroid() const { return centroid_; }           ///< as `location`, topmost view

  /// Called when a finger has landed, which is then the last of `fingers`. This and the next two
  /// are called only while the recognizer is possible or running. `time`: seconds.
  virtual void fingerLanded(double time) = 0;

  /// Called when some of `fingers` have moved.
  virtual void fingersMoved() = 0;

  /// Called when a finger has left, which is then no longer one of `fingers`.
  virtual void fingerLeft(const Finger& finger, double time, bool cancelled) = 0;

  /// Called after a gesture, to forget what was measured. `state` is still the last one.
  virtual void reset() {}

  /// Whether a recognizer that failed or ended may begin again with the fingers that are down, once
  /// their number has changed and nobody holds it back any more. Otherwise it waits until all of
  /// its fingers have left.
  virtual bool canStartOver() const { return false; }

 private:
  friend class TouchDispatcher;
  friend class View;

  // Touches of one phase, of several fingers only when they move.
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
  TouchDispatcher* dispatcher_ = nullptr;  // while it hands over a touch
  GestureState state_ = GestureState::possible;
  std::vector<std::pair<std::string, Action>> targets_;
  std::vector<Finger> fingers_;
  graphics::Point centroid_;
};

}  // namespace orivanta::view

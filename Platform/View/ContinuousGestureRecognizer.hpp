// The base class of continuous gestures: pans, pinches and rotations.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/GestureRecognizer.hpp"

namespace orivanta::view {

/// Begins when an accepted number of fingers has moved far enough, changes with every movement and
/// ends when the number of fingers is no longer accepted. It measures movement from its beginning,
/// so the initial value is no movement. The value does not jump when a finger lands or leaves. If
/// fingers are still down when it ends, all continuous recognizers may begin with them.
class ORIVANTA_API ContinuousGestureRecognizer : public GestureRecognizer {
 protected:
  /// Returns whether the gesture can be made with this number of fingers. Must return false for 0.
  virtual bool takes(std::size_t fingerCount) const = 0;

  /// Resets the measured movement.
  virtual void clear() = 0;

  /// Continues measuring from the current positions of the fingers.
  virtual void rebase() = 0;

  /// Adds the fingers' movement. Returns whether the movement since `clear` is sufficient to begin.
  virtual bool follow() = 0;

  /// Returns the vector from the first finger to the second in points, or zero if there are fewer
  /// than two fingers.
  graphics::Point span() const;

  void fingerLanded(double time) final;
  void fingersMoved() final;
  void fingerLeft(const Finger& finger, double time, bool canceled) final;
  void reset() final;
  bool canStartOver() const final { return true; }

 private:
  void numberChanged(GestureState outOfRange);
};

}  // namespace orivanta::view

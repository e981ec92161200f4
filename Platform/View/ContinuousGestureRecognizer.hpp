// What gestures that last have in common: pans, pinches and rotations.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/GestureRecognizer.hpp"

namespace orivanta::view {

/// Begins once the right number of fingers has moved far enough, changes with every movement and
/// ends when their number is no longer right. What it measures counts from the moment of its
/// beginning, so that it begins with nothing moved; fingers that come or go do not make it jump.
/// When it ends with fingers still down, all continuous recognizers may begin with those.
class ORIVANTA_API ContinuousGestureRecognizer : public GestureRecognizer {
 protected:
  /// Whether the gesture is made with so many fingers. Never with none.
  virtual bool takes(std::size_t fingerCount) const = 0;

  /// Back to nothing moved.
  virtual void clear() = 0;

  /// Measure further from where the fingers are now.
  virtual void rebase() = 0;

  /// Adds the fingers' movement; returns whether all of it since `clear` is far enough to begin.
  virtual bool follow() = 0;

  /// From the first finger to the second, in points; zero with fewer than two.
  graphics::Point span() const;

  void fingerLanded(double time) final;
  void fingersMoved() final;
  void fingerLeft(const Finger& finger, double time, bool cancelled) final;
  void reset() final;
  bool canStartOver() const final { return true; }

 private:
  void numberChanged(GestureState outOfRange);
};

}  // namespace orivanta::view

// Two fingers that turn about one another.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

/// Made with the first two of at least two fingers. Begins once the line between them has turned by
/// 5 degrees. While they are less than a point apart they turn nothing.
class ORIVANTA_API RotationGestureRecognizer : public ContinuousGestureRecognizer {
 public:
  /// Radians clockwise, as seen, since the gesture began, at which it is 0. Goes on beyond half a
  /// turn, without a jump.
  double rotation() const { return rotation_; }

  /// What follows is added to it.
  void setRotation(double rotation) { rotation_ = rotation; }

 protected:
  bool takes(std::size_t fingerCount) const override { return fingerCount >= 2; }
  void clear() override { rotation_ = 0.0; }
  void rebase() override;
  bool follow() override;

 private:
  double rotation_ = 0.0;
  graphics::Point last_;  // the fingers' span when they were last far enough apart
};

}  // namespace orivanta::view

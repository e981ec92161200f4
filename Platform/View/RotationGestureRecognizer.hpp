// A recognizer for two fingers that rotate around each other.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

/// Recognizes rotation with the first two of at least two fingers. Begins when the line between
/// them has rotated by 5 degrees. Movement is ignored while the fingers are less than one point
/// apart.
class ORIVANTA_API RotationGestureRecognizer : public ContinuousGestureRecognizer {
 public:
  /// Returns the rotation since the beginning of the gesture in radians, clockwise on the screen.
  /// It is continuous beyond half a turn.
  double rotation() const { return rotation_; }

  /// Sets the rotation. Further rotation is added to this value.
  void setRotation(double rotation) { rotation_ = rotation; }

 protected:
  bool takes(std::size_t fingerCount) const override { return fingerCount >= 2; }
  void clear() override { rotation_ = 0.0; }
  void rebase() override;
  bool follow() override;

 private:
  double rotation_ = 0.0;
  graphics::Point last_;  // the span when the fingers were last far enough apart
};

}  // namespace orivanta::view

// A recognizer for two fingers that move apart or together.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

/// Recognizes pinching with the first two of at least two fingers. Begins when their distance has
/// changed by 8 points. A distance below one point counts as one point, so that the scale is always
/// greater than 0.
class ORIVANTA_API PinchGestureRecognizer : public ContinuousGestureRecognizer {
 public:
  /// Returns the ratio of the current distance to the distance at the beginning of the gesture. It
  /// is greater than 1 if the fingers have moved apart.
  double scale() const { return scale_; }

  /// Sets the scale. Further changes of the distance multiply this value.
  void setScale(double scale) { scale_ = scale; }

 protected:
  bool takes(std::size_t fingerCount) const override { return fingerCount >= 2; }
  void clear() override;
  void rebase() override;
  bool follow() override;

 private:
  double distance() const;

  double scale_ = 1.0;
  double change_ = 0.0;  // of the distance, in points
  double last_ = 1.0;    // distance
};

}  // namespace orivanta::view

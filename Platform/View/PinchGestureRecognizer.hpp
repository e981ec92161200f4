// Two fingers that move apart or together.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

/// Made with the first two of at least two fingers. Begins once their distance has changed by 8
/// points. A distance below a point counts as one, so that the scale is always above zero.
class ORIVANTA_API PinchGestureRecognizer : public ContinuousGestureRecognizer {
 public:
  /// Of the distance since the gesture began, at which it is 1; above 1 the fingers are further
  /// apart.
  double scale() const { return scale_; }

  /// What follows is multiplied by it.
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

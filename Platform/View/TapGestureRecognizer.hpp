// One or more short touches of one place.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/GestureRecognizer.hpp"

namespace orivanta::view {

/// Ends once as many fingers as required, no more and no fewer, have touched as often as required:
/// each for at most 0.75 seconds, without moving further than 10 points, and each tap at most 0.35
/// seconds after the one before and 40 points from it.
class ORIVANTA_API TapGestureRecognizer : public GestureRecognizer {
 public:
  std::size_t numberOfTapsRequired = 1;     ///< 2 for a double tap
  std::size_t numberOfTouchesRequired = 1;  ///< fingers

 protected:
  void fingerLanded(double time) override;
  void fingersMoved() override;
  void fingerLeft(const Finger& finger, double time, bool cancelled) override;
  void reset() override;

 private:
  std::size_t tapCount_ = 0;
  std::size_t mostFingers_ = 0;  // down at once in this tap
  double lastTapTime_ = 0.0;
  graphics::Point lastTapPlace_;
};

}  // namespace orivanta::view

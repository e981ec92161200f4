// A recognizer for one or more taps at the same place.
// Public header.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/GestureRecognizer.hpp"

namespace orivanta::view {

/// Recognizes taps. Ends when exactly the required number of fingers has tapped the required number
/// of times. Each touch may last at most 0.75 seconds and move at most 10 points. Each tap must
/// follow the previous one within 0.35 seconds and 40 points.
class ORIVANTA_API TapGestureRecognizer : public GestureRecognizer {
 public:
  std::size_t numberOfTapsRequired = 1;     ///< 2 for a double tap
  std::size_t numberOfTouchesRequired = 1;  ///< fingers

 protected:
  void fingerLanded(double time) override;
  void fingersMoved() override;
  void fingerLeft(const Finger& finger, double time, bool canceled) override;
  void reset() override;

 private:
  std::size_t tapCount_ = 0;
  std::size_t mostFingers_ = 0;  // simultaneous fingers in this tap
  double lastTapTime_ = 0.0;
  graphics::Point lastTapPlace_;
};

}  // namespace orivanta::view

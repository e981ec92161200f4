// A recognizer for dragging.
// Public header.
#pragma once

#include <cstdint>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

/// Recognizes dragging. Begins when the center of the fingers has moved by 10 points and the number
/// of fingers is within the range.
class ORIVANTA_API PanGestureRecognizer : public ContinuousGestureRecognizer {
 public:
  std::size_t minimumNumberOfTouches = 1;         ///< smallest number of fingers
  std::size_t maximumNumberOfTouches = SIZE_MAX;  ///< largest number of fingers

  /// Returns the movement of the fingers' center since the beginning of the gesture, in points. As
  /// views are not rotated, it is the same in every view.
  graphics::Point translation() const { return translation_; }

  /// Sets the translation. Further movement is added to this value.
  void setTranslation(graphics::Point translation) { translation_ = translation; }

 protected:
  bool takes(std::size_t fingerCount) const override;
  void clear() override { translation_ = {}; }
  void rebase() override { last_ = centroid(); }
  bool follow() override;

 private:
  graphics::Point translation_;
  graphics::Point last_;  // center of the fingers
};

}  // namespace orivanta::view

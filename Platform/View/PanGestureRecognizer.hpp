// Fingers that drag.
// Public header.
#pragma once

#include <cstdint>

#include "Platform/Foundation/Export.hpp"
#include "Platform/View/ContinuousGestureRecognizer.hpp"

namespace orivanta::view {

/// Begins once the fingers' middle has moved 10 points with a number of fingers in range.
class ORIVANTA_API PanGestureRecognizer : public ContinuousGestureRecognizer {
 public:
  std::size_t minimumNumberOfTouches = 1;         ///< fingers with which it may be made
  std::size_t maximumNumberOfTouches = SIZE_MAX;  ///< fingers with which it may be made

  /// Points that the fingers' middle has moved since the gesture began, at which it is zero. As
  /// views are not turned, it is the same in every view.
  graphics::Point translation() const { return translation_; }

  /// What follows is added to it.
  void setTranslation(graphics::Point translation) { translation_ = translation; }

 protected:
  bool takes(std::size_t fingerCount) const override;
  void clear() override { translation_ = {}; }
  void rebase() override { last_ = centroid(); }
  bool follow() override;

 private:
  graphics::Point translation_;
  graphics::Point last_;  // the fingers' middle
};

}  // namespace orivanta::view

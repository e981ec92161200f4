// An animation of a matrix, defined by its values at key times.
// Public header.
#pragma once

#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

/// A keyframe animation. It must not be changed after it is shared. The progress of one run goes
/// from 0 to 1 over `duration` and is compared with `keyTimes` directly. For example, a key time of
/// 5 is beyond the end, and the run covers only the first fifth of the interpolation to its value.
class ORIVANTA_API KeyframeAnimation {
 public:
  std::string keyPath;  ///< the animated property, such as "diffuse.contentsTransform"
  std::vector<graphics::Matrix4> values;  ///< one for each key time
  std::vector<double> keyTimes;           ///< increasing, one for each value
  double duration = 0.0;                  ///< seconds of one run
  double repeatCount = 1.0;               ///< number of runs; may be infinite
  bool autoreverses = false;  ///< each run is followed by a reverse run of the same duration
  bool isAdditive = false;    ///< whether values are added to the value of the property

  /// Returns the value `elapsed` seconds after the beginning. Values between key times are
  /// interpolated by component. Returns the first frame before the beginning and the last frame
  /// after the last run. Returns `base` if the duration is 0, if there are no values, or if the
  /// number of key times differs from the number of values. The value of an additive animation is
  /// added to `base`.
  graphics::Matrix4 value(double elapsed, const graphics::Matrix4& base) const;

  /// Returns whether the last run has not ended yet at that time.
  bool isRunning(double elapsed) const;
};

}  // namespace orivanta::scene

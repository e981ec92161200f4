// A matrix that changes with time, told by its values at some moments.
// Public header.
#pragma once

#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

/// Immutable once shared. The progress of one run goes from 0 to 1 over `duration`; `keyTimes`,
/// one a value and rising, are compared with it as they stand, so a key time of 5 lies beyond the
/// end and the run covers only the first fifth of the way to its value.
class ORIVANTA_API KeyframeAnimation {
 public:
  std::string keyPath;                    ///< the property, such as "diffuse.contentsTransform"
  std::vector<graphics::Matrix4> values;  ///< one for each key time
  std::vector<double> keyTimes;           ///< rising
  double duration = 0.0;                  ///< seconds of one run
  double repeatCount = 1.0;               ///< number of runs; may be infinite
  bool autoreverses = false;  ///< each run is followed by one back, of the same duration
  bool isAdditive = false;    ///< whether values are added to the value of the property

  /// The value `elapsed` seconds after the beginning, values between key times interpolated
  /// component by component. Before the beginning it is the first frame; after the last run it is
  /// the last. Without duration, `base`; so too without values or with another number of key times.
  /// An additive animation adds its value to `base`.
  graphics::Matrix4 value(double elapsed, const graphics::Matrix4& base) const;

  /// Whether the last run has not ended at that time.
  bool isRunning(double elapsed) const;
};

}  // namespace orivanta::scene

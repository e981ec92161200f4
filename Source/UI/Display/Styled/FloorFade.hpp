// Fades out the floor that a map view showed before.
// Private header.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Scene/Fwd.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/Styled/FloorClone.hpp"

namespace orivanta {

/// Draws a copy of the former floor over the new one for a quarter of a second. Changed and
/// advanced under transactions.
class FloorFade {
 public:
  /// Ends a running fade and starts another one. `former` must have a model.
  void start(const Map& former, scene::Node& root);

  /// Ends a running fade.
  void stop();

  /// Advances the fade, which starts with the first call, to the time of the frame that is drawn.
  void advance(double time);

  bool isRunning() const { return clone_ != nullptr; }

 private:
  std::unique_ptr<FloorClone> clone_;  // null if no fade is running
  std::optional<double> start_;        // empty until first advanced
};

}  // namespace orivanta

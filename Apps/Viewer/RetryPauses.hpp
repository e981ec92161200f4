// The pauses between attempts to reach a server.
#pragma once

#include <algorithm>
#include <random>

namespace orivanta::viewer {

/// The pauses grow from 1 second to a minute. Each one varies by a fifth, so that the devices of a
/// building do not all ask the server at the same time when it is back.
class RetryPauses {
 public:
  explicit RetryPauses(unsigned seed = std::random_device()()) : random_(seed) {}

  /// Returns the next pause in seconds.
  double next() {
    const double pause = pause_ * std::uniform_real_distribution<double>(0.8, 1.2)(random_);
    pause_ = std::min(longest, pause_ * 2);
    return pause;
  }

  /// Starts again with the shortest pause.
  void reset() { pause_ = 1; }

 private:
  static constexpr double longest = 60;

  std::mt19937 random_;
  double pause_ = 1;
};

}  // namespace orivanta::viewer

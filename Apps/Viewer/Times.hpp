// What took how long, for whoever fits a screen to a machine.
#pragma once

#include <chrono>
#include <string_view>
#include <vector>

namespace orivanta::viewer {

/// Writes to standard error, or nothing when it is not enabled. Main thread.
class Times {
 public:
  explicit Times(bool isEnabled) : isEnabled_(isEnabled) {}

  /// A line with the seconds since this was made, once for each text.
  void reached(std::string_view what);

  /// A frame was drawn and shown, in so many seconds.
  void frame(double seconds);

  /// How many frames there were, how long the middle and the slowest of them took, and the most
  /// memory that the process held.
  void summarize() const;

 private:
  using Clock = std::chrono::steady_clock;

  bool isEnabled_;
  Clock::time_point start_ = Clock::now();
  std::vector<std::string_view> reached_;
  std::vector<double> frames_;
};

}  // namespace orivanta::viewer

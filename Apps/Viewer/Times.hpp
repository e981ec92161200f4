// Measures how long startup and the frames take, for choosing a machine.
#pragma once

#include <chrono>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::viewer {

/// Writes the results as lines. Main thread only.
class Times {
 public:
  using WriteLine = std::function<void(std::string_view line)>;

  /// If the function is null, nothing is measured.
  explicit Times(WriteLine writeLine) : writeLine_(std::move(writeLine)) {}

  /// Writes a line with the seconds since construction, once for each text. The text must outlive
  /// this object.
  void reached(std::string_view what);

  /// Counts a frame that was drawn and shown in this many seconds.
  void frame(double seconds);

  /// Writes the number of frames, the median and the longest time of a frame, and the maximum
  /// memory use of the process.
  void summarize() const;

 private:
  using Clock = std::chrono::steady_clock;

  const WriteLine writeLine_;
  Clock::time_point start_ = Clock::now();
  std::vector<std::string_view> reached_;
  std::vector<double> frames_;
};

}  // namespace orivanta::viewer

// How long the parts of a start and the frames take, for choosing a machine.
#pragma once

#include <chrono>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::viewer {

/// Reports in lines. For the main thread.
class Times {
 public:
  using WriteLine = std::function<void(std::string_view line)>;

  /// Without a function nothing is measured.
  explicit Times(WriteLine writeLine) : writeLine_(std::move(writeLine)) {}

  /// Writes a line with the seconds since this object was made, once for each text. The text must
  /// outlive this object.
  void reached(std::string_view what);

  /// Takes note of a frame that was drawn and shown within so many seconds.
  void frame(double seconds);

  /// Writes the number of frames, the median and the longest time of a frame, and the most memory
  /// that the process has held.
  void summarize() const;

 private:
  using Clock = std::chrono::steady_clock;

  const WriteLine writeLine_;
  Clock::time_point start_ = Clock::now();
  std::vector<std::string_view> reached_;
  std::vector<double> frames_;
};

}  // namespace orivanta::viewer

#include "Apps/Viewer/Times.hpp"

#include <fmt/format.h>
#include <sys/resource.h>

#include <algorithm>

namespace orivanta::viewer {

void Times::reached(std::string_view what) {
  if (!writeLine_ || std::find(reached_.begin(), reached_.end(), what) != reached_.end()) return;
  reached_.push_back(what);
  const std::chrono::duration<double> seconds = Clock::now() - start_;
  writeLine_(fmt::format("{:7.3f} s  {}", seconds.count(), what));
}

void Times::frame(double seconds) {
  if (writeLine_) frames_.push_back(seconds);
}

void Times::summarize() const {
  if (!writeLine_) return;
  auto sorted = frames_;
  std::sort(sorted.begin(), sorted.end());
  if (!sorted.empty())
    writeLine_(fmt::format("{} frames, median {:.1f} ms, maximum {:.1f} ms", sorted.size(),
                           1e3 * sorted[sorted.size() / 2], 1e3 * sorted.back()));
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  writeLine_(fmt::format("peak memory {:.0f} MB", static_cast<double>(usage.ru_maxrss) / 1024));
}

}  // namespace orivanta::viewer

// One line at the bottom of a terminal that is rewritten in place and vanishes in the end.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace orivanta::command {

/// Any thread.
class ProgressLine {
 public:
  using Clock = std::chrono::steady_clock;
  using Writer = std::function<void(std::string_view bytes)>;

  /// `columns` is the width of the terminal; nothing means that there is no terminal: then the line
  /// itself is never written.
  ProgressLine(Writer writer, std::optional<std::size_t> columns);

  /// For the process's standard error.
  static ProgressLine& standardError();

  /// Replaces the line, unless it has been replaced within the last twentieth of a second.
  void show(std::string_view text, Clock::time_point now);

  void clear();

  /// Writes a line that stays, above the progress.
  void note(std::string_view line);

 private:
  void erase();

  const Writer writer_;
  const std::optional<std::size_t> columns_;
  std::mutex mutex_;  // guards the two below and keeps lines whole
  bool visible_ = false;
  std::optional<Clock::time_point> shownAt_;
};

}  // namespace orivanta::command

// A line at the bottom of a terminal that is rewritten in place and removed at the end.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace orivanta::command {

/// Thread-safe.
class ProgressLine {
 public:
  using Clock = std::chrono::steady_clock;
  using Writer = std::function<void(std::string_view bytes)>;

  /// `columns` is the width of the terminal. If it is empty, there is no terminal, and the line
  /// itself is never written.
  ProgressLine(Writer writer, std::optional<std::size_t> columns);

  /// The line on the process's standard error.
  static ProgressLine& standardError();

  /// Returns whether there is a terminal that shows the line.
  bool isShown() const { return columns_.has_value(); }

  /// Replaces the line, unless it was replaced less than 1/20 of a second ago.
  void show(std::string_view text, Clock::time_point now);

  void clear();

  /// Writes a permanent line above the progress.
  void note(std::string_view line);

 private:
  void erase();

  const Writer writer_;
  const std::optional<std::size_t> columns_;
  std::mutex mutex_;  // guards the next two members and keeps lines whole
  bool visible_ = false;
  std::optional<Clock::time_point> shownAt_;
};

}  // namespace orivanta::command

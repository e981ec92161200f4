#include "Apps/Command/ProgressLine.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

namespace {

constexpr auto shortestInterval = std::chrono::milliseconds(50);
constexpr std::string_view eraseLine = "\r\033[K";

void writeToStandardError(std::string_view bytes) {
  std::fwrite(bytes.data(), 1, bytes.size(), stderr);
}

std::optional<std::size_t> terminalColumns() {
  const char* terminal = std::getenv("TERM");
  const bool capable = terminal != nullptr && std::string_view(terminal) != "dumb";
  if (!capable || isatty(STDERR_FILENO) == 0) return std::nullopt;
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col < 2) return 80;
  return size.ws_col;
}

}  // namespace

ProgressLine::ProgressLine(Writer writer, std::optional<std::size_t> columns)
    : writer_(std::move(writer)), columns_(columns) {}

ProgressLine& ProgressLine::standardError() {
  // Never destroyed, because requests may still report progress when the process ends.
  static auto& line = *new ProgressLine(writeToStandardError, terminalColumns());
  return line;
}

void ProgressLine::show(std::string_view text, Clock::time_point now) {
  const std::lock_guard lock(mutex_);
  if (!columns_ || (shownAt_ && now - *shownAt_ < shortestInterval)) return;
  shownAt_ = now;
  visible_ = true;
  // The last column stays empty, because many terminals wrap after writing it.
  writer_(std::string(eraseLine) + foundation::clipped(text, *columns_ - 1));
}

void ProgressLine::clear() {
  const std::lock_guard lock(mutex_);
  erase();
  shownAt_.reset();
}

void ProgressLine::note(std::string_view line) {
  const std::lock_guard lock(mutex_);
  erase();
  writer_(foundation::printable(line) + '\n');
}

void ProgressLine::erase() {
  if (!visible_) return;
  writer_(eraseLine);
  visible_ = false;
}

}  // namespace orivanta::command

#include "Apps/Command/Output.hpp"

#include <fmt/format.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string>

#include "Apps/Command/CommandError.hpp"
#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

void writeOutput(std::string_view text) {
  const bool written =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (written) return;
  const int reason = errno;
  if (reason == EPIPE) {
    std::signal(SIGPIPE, SIG_DFL);
    std::raise(SIGPIPE);
  }
  throw CommandError(ExitCode::outputFailed,
                     fmt::format("cannot write to standard output: {}", std::strerror(reason)));
}

void complain(std::string_view text) {
  std::string lines = "orivanta: ";
  for (;;) {
    const std::size_t end = text.find('\n');
    lines += foundation::printable(text.substr(0, end)) + '\n';
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  std::fwrite(lines.data(), 1, lines.size(), stderr);
}

}  // namespace orivanta::command

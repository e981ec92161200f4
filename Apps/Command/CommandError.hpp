// The exit codes of the command, and the exception that carries one with a message.
#pragma once

#include <stdexcept>
#include <string>

namespace orivanta::command {

enum class ExitCode {
  success = 0,
  notFound = 1,  ///< no route, no such venue, no such location
  wrongUse = 2,  ///< the command line, or a file that it names, cannot be used
  noAnswer = 3,  ///< the server cannot be reached, refuses the request or sends an invalid response
  outputFailed = 4,      ///< standard output or a file cannot be written
  unreadableSource = 5,  ///< the source of an import cannot be read
  failed = 6             ///< not enough memory, or an error that no command expects
};

/// Ends the subcommand. The message is for people. It may have several lines, without a final
/// break.
class CommandError : public std::runtime_error {
 public:
  CommandError(ExitCode exitCode, const std::string& text)
      : std::runtime_error(text), code(exitCode) {}

  const ExitCode code;
};

}  // namespace orivanta::command

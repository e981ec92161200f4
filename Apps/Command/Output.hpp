// Writes results to standard output and messages to standard error.
#pragma once

#include <string_view>

namespace orivanta::command {

/// Writes to standard output and flushes, so that a program at the other end of a pipe receives the
/// text immediately. Throws `CommandError` if writing fails. If the reader has closed the pipe,
/// SIGPIPE ends the program.
void writeOutput(std::string_view text);

/// Writes "orivanta: " and the text to standard error as a line without control characters.
void complain(std::string_view text);

}  // namespace orivanta::command

// The program's own output, apart from everything that it says beside it.
#pragma once

#include <string_view>

namespace orivanta::command {

/// Writes to standard output and flushes, so that a program at the other end of a pipe sees it at
/// once. Throws `CommandError` when it cannot be written; a reader that has gone away ends the
/// program as it would any other in a pipeline.
void writeOutput(std::string_view text);

/// Writes "orivanta: " and the text as a line to standard error, free of control characters.
void complain(std::string_view text);

}  // namespace orivanta::command

// Diagnostic lines: plain texts for whoever watches the program, without levels or a log file.
// Public header.
#pragma once

#include <functional>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Receives one line at a time, without its line break. Called on the thread that reports the
/// line, one call at a time, maybe while the library holds locks: it must not call the library.
using DiagnosticSink = std::function<void(std::string_view line)>;

/// Replaces the sink for the whole process; an empty one restores the default, which writes to
/// standard output. Any thread.
ORIVANTA_API void setDiagnosticSink(DiagnosticSink sink);

/// Hands one line to the sink. Any thread.
ORIVANTA_API void diagnostic(std::string_view line);

}  // namespace orivanta::foundation

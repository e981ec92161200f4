// Diagnostic lines: plain text for developers, without log levels or a log file.
// Public header.
#pragma once

#include <functional>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Receives one line, without its line break. It is called on the thread that reports the line,
/// never concurrently. The library may hold locks during the call, so the function must not call
/// the library.
using DiagnosticSink = std::function<void(std::string_view line)>;

/// Replaces the sink of the process. An empty function restores the default, which writes to
/// standard output. Any thread.
ORIVANTA_API void setDiagnosticSink(DiagnosticSink sink);

/// Passes one line to the sink. Any thread.
ORIVANTA_API void diagnostic(std::string_view line);

}  // namespace orivanta::foundation

#include "Platform/Foundation/Diagnostics.hpp"

#include <cstdio>
#include <mutex>
#include <utility>

namespace orivanta::foundation {

namespace {

void writeToStandardOutput(std::string_view line) {
  std::fwrite(line.data(), 1, line.size(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
}

struct SinkHolder {
  std::mutex mutex;
  DiagnosticSink sink = writeToStandardOutput;
};

// Never destroyed, because background threads may still report while the process ends.
SinkHolder& holder() {
  static auto& instance = *new SinkHolder;
  return instance;
}

}  // namespace

void setDiagnosticSink(DiagnosticSink sink) {
  const std::lock_guard lock(holder().mutex);
  holder().sink = sink ? std::move(sink) : writeToStandardOutput;
}

void diagnostic(std::string_view line) {
  const std::lock_guard lock(holder().mutex);
  holder().sink(line);
}

}  // namespace orivanta::foundation

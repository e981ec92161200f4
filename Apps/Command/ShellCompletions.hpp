// Generates completions for shells from the definition of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace orivanta::command {

/// Returns a script for bash-completion. Its file must be named `orivanta`.
std::string bashCompletions(const CLI::App& app);

/// Returns a function for zsh. Its file must be named `_orivanta`.
std::string zshCompletions(const CLI::App& app);

/// Returns a script for fish. Its file must be named `orivanta.fish`.
std::string fishCompletions(const CLI::App& app);

}  // namespace orivanta::command

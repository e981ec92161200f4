// Completions for shells, made from the definition of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace orivanta::command {

/// A script for bash-completion, to be loaded as `orivanta`.
std::string bashCompletions(const CLI::App& app);

/// A function for zsh, to be found as `_orivanta`.
std::string zshCompletions(const CLI::App& app);

/// A script for fish, to be loaded as `orivanta.fish`.
std::string fishCompletions(const CLI::App& app);

}  // namespace orivanta::command

// Generates the manual page from the definition of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

namespace orivanta::command {

/// Returns a page of section 1 for man(1), with the `--help` of the program and of each subcommand.
std::string manualPage(const CLI::App& app, std::string_view version);

}  // namespace orivanta::command

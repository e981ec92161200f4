// The manual page, made from the definition of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

namespace orivanta::command {

/// A page of section 1 for man(1): what `--help` says about the program and about each subcommand.
std::string manualPage(const CLI::App& app, std::string_view version);

}  // namespace orivanta::command

// What the definition of a command line says, for texts that are made from it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace orivanta::command {

/// What follows the name of an option.
enum class OptionValue {
  none,    ///< nothing, or a text that may be left out
  file,    ///< the path of a file
  folder,  ///< the path of a folder
  other    ///< any other text
};

/// The subcommands, in the order of `--help`.
std::vector<const CLI::App*> commandsOf(const CLI::App& app);

/// The options that have a name, in the order of `--help`.
std::vector<const CLI::Option*> optionsOf(const CLI::App& app);

/// The arguments without a name, in their order.
std::vector<const CLI::Option*> argumentsOf(const CLI::App& app);

/// The names of an option as they are typed, such as "-o" and "--output".
std::vector<std::string> spellings(const CLI::Option& option);

/// The word that stands for the option's value in `--help`, such as "FILE"; empty for a flag.
std::string valueName(const CLI::Option& option);

OptionValue valueOf(const CLI::Option& option);

}  // namespace orivanta::command

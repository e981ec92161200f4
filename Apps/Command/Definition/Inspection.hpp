// Reads the definition of the command line, for texts that are generated from it.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace orivanta::command {

/// The kind of value that an option takes.
enum class OptionValue {
  none,    ///< no value, or an optional one
  file,    ///< the path of a file
  folder,  ///< the path of a folder
  other    ///< any other text
};

/// The subcommands, in the order of `--help`.
std::vector<const CLI::App*> commandsOf(const CLI::App& app);

/// The names of the subcommands, in the order of `--help`.
std::vector<std::string> commandNames(const CLI::App& app);

/// The options that have a name, in the order of `--help`.
std::vector<const CLI::Option*> optionsOf(const CLI::App& app);

/// The positional arguments in order.
std::vector<const CLI::Option*> argumentsOf(const CLI::App& app);

/// The names of an option as typed, such as "-o" and "--output".
std::vector<std::string> spellings(const CLI::Option& option);

/// The names of all options of a command.
std::vector<std::string> optionNames(const CLI::App& app);

/// The placeholder of the option's value in `--help`, such as "FILE". Empty for a flag.
std::string valueName(const CLI::Option& option);

OptionValue valueOf(const CLI::Option& option);

}  // namespace orivanta::command

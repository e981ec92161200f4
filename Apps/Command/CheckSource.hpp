// The subcommand `check`: finds the mistakes in a source of an import or in venue packages.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/ImportBuilding.hpp"

namespace orivanta::command {

struct CheckOptions {
  /// Its `sources` are venue packages, folders that contain them, or the files of one source. For
  /// a source, its choices apply, but nothing is written.
  ImportOptions import;
  std::optional<std::string> html;  ///< a file for the report
  bool strict = false;              ///< warnings count as violations
  bool json = false;
};

/// Prints the findings. Returns `notFound` if there are violations. Throws `CommandError` if a
/// source cannot be read, a file does not exist, or the report cannot be written.
ExitCode checkSource(const CheckOptions& options);

/// Returns "; run `orivanta check FOLDER`" if the folders contain packages, to complete the message
/// of a failure, or else nothing.
std::string checkAdvice(const std::vector<std::filesystem::path>& folders);

/// Prints a line on standard error for each package that has violations or warnings, without
/// reading its models. Never throws.
void summarizePackages(const std::vector<std::filesystem::path>& folders) noexcept;

}  // namespace orivanta::command

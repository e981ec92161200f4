// Options that several subcommands share.
#pragma once

#include <optional>
#include <string>

#include "Apps/Command/Definition/CommandLine.hpp"

namespace orivanta::command {

/// Adds an option of the group "Connection".
void addText(CLI::App& app, const char* name, std::optional<std::string>& value,
             const char* purpose, const char* type);
void addConnectionOptions(CLI::App& app, ConnectionOptions& options);
void addQuiet(CLI::App& app, ConnectionOptions& options);

/// The options that queries accept before and after the subcommand.
void addQueryOptions(CLI::App& app, CommandLine& line);

/// The positional argument that names a venue.
void addSlug(CLI::App& query, std::string& slug);

/// Adds a subcommand that queries an API. Parsing fills `options`. The options that all queries
/// share are copied to it before it is used.
template <class Options>
CLI::App& addQuery(CLI::App& app, CommandLine& line, const char* name, const char* purpose,
                   const char* examples, Options& options, ExitCode (*run)(const Options&)) {
  CLI::App& query = *app.add_subcommand(name, purpose);
  query.footer(examples);
  query.callback([&line, &options, run] {
    line.chosen = [&line, &options, run] {
      options.connection = line.connection;
      options.json = line.json;
      return run(options);
    };
  });
  return query;
}

}  // namespace orivanta::command

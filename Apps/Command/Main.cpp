// The command `orivanta`: what can be said on its command line.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>

#include "Apps/Command/FindRoute.hpp"
#include "Apps/Command/ListVenues.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/ShowVenue.hpp"

namespace orivanta::command {

namespace {

constexpr const char* description = R"(Indoor venue maps: list venues, look into one, find routes.

Venues come from a web API. Its root, the user name and the password are taken from the
command line, else from the environment, else from the property lists (*.plist) of the main
bundle: the folder "Resources" beside this program, then ~/.config/orivanta.
)";

constexpr const char* footer = R"(
Examples:
  orivanta venues
  orivanta venue my-mall --locations coffee
  orivanta route my-mall --from "North Entrance" --to "Book Shop" --accessible
  orivanta --endpoint http://localhost:8080/1/ venues

Exit codes: 0 done, 1 nothing found, 2 wrong use, 3 no answer from the server,
4 the output cannot be written.

`orivanta COMMAND --help` tells more about each command.)";

constexpr const char* venuesFooter = R"(
Examples:
  orivanta venues                       slug and name of each venue, one on a line
  orivanta venues --json | jq -r '.[].slug')";

constexpr const char* venueFooter = R"(
Examples:
  orivanta venue my-mall                floors, categories and connectors
  orivanta venue my-mall --locations    all locations
  orivanta venue my-mall --locations coffee
  orivanta venue my-mall --accessible   only connectors without steps)";

constexpr const char* routeFooter = R"(
A place is the identifier of a location or of a node, or a location's name: the whole name, the
name in other capitals, or a part of it that no other name has. `orivanta venue SLUG --locations`
lists them. With several places on a side the route may begin (end) at any of them.

Examples:
  orivanta route my-mall --from "North Entrance" --to "Book Shop"
  orivanta route my-mall --from node-17 --to lift-lobby --to stairs-lobby --json
  orivanta route my-mall --batch requests.jsonl > answers.jsonl

A batch has one JSON object a line and gives one line for each, in order:
  {"id": 1, "from": ["node-17"], "to": ["node-4", "node-5"]}
  {"id": 2, "fromLocation": "shop-1", "toLocation": "shop-2"}
"path" in an answer is the list of nodes, or null without a route; "weight" is what it costs. A
line that is no such request gives "error" instead, and the batch goes on.)";

/// What the command line says, and the subcommand that it chose.
struct CommandLine {
  ConnectionOptions connection;
  bool json = false;
  ListVenuesOptions listVenues;
  ShowVenueOptions showVenue;
  FindRouteOptions findRoute;
  std::function<ExitCode()> chosen;
};

void addConnectionOptions(CLI::App& app, ConnectionOptions& options) {
  const auto add = [&](const char* name, std::optional<std::string>& value, const char* help,
                       const char* type) {
    app.add_option(name, value, help)->type_name(type)->group("Connection");
  };
  add("--settings", options.settingsFolder, "Folder of property lists to use", "FOLDER");
  add("--endpoint", options.endpoint, "Root of the web API (or ORIVANTA_ENDPOINT)", "URL");
  add("--username", options.username, "User name (or ORIVANTA_USERNAME)", "TEXT");
  add("--password", options.password, "Password (better: ORIVANTA_PASSWORD)", "TEXT");
  add("--password-file", options.passwordFile, "File with the password, - for standard input",
      "FILE");
}

// The options of every query, before the subcommand and after it.
void addQueryOptions(CLI::App& app, CommandLine& line) {
  addConnectionOptions(app, line.connection);
  app.add_flag("--json", line.json, "Print JSON");
}

// `options` is filled while the command line is read; what all queries share goes in at the end.
template <class Options>
CLI::App& addQuery(CLI::App& app, CommandLine& line, const char* name, const char* help,
                   const char* examples, Options& options, ExitCode (*run)(const Options&)) {
  CLI::App& query = *app.add_subcommand(name, help);
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

void addVenues(CLI::App& app, CommandLine& line) {
  auto& query =
      addQuery(app, line, "venues", "List the venues", venuesFooter, line.listVenues, listVenues);
  addQueryOptions(query, line);
}

void addVenue(CLI::App& app, CommandLine& line) {
  ShowVenueOptions& options = line.showVenue;
  auto& query =
      addQuery(app, line, "venue", "Show what is in a venue", venueFooter, options, showVenue);
  query.add_option("SLUG", options.slug, "The venue's key, see `orivanta venues`")
      ->required()
      ->type_name("");
  query
      .add_option("--locations", options.locations,
                  "List the locations, or those with this text in their name or identifier")
      ->expected(0, 1)
      ->type_name("[TEXT]");
  query.add_flag("--accessible", options.accessible, "Leave out connectors with steps");
  addQueryOptions(query, line);
}

void addRoute(CLI::App& app, CommandLine& line) {
  FindRouteOptions& options = line.findRoute;
  auto& query = addQuery(app, line, "route", "Find the way from one place to another", routeFooter,
                         options, findRoute);
  query.add_option("SLUG", options.slug, "The venue's key, see `orivanta venues`")
      ->required()
      ->type_name("");
  const auto addPlaces = [&](const char* name, std::vector<std::string>& places, const char* help) {
    query.add_option(name, places, help)->type_name("PLACE")->allow_extra_args(false);
  };
  addPlaces("--from", options.from, "Where to begin; may be repeated");
  addPlaces("--to", options.to, "Where to arrive; may be repeated");
  query.add_flag("--accessible", options.accessible, "Without connectors that have steps");
  query.add_option("--batch", options.batchFile, "File of requests, - for standard input")
      ->type_name("FILE");
  addQueryOptions(query, line);
}

int run(int argc, char** argv) {
  CommandLine line;
  CLI::App app(description, "orivanta");
  app.footer(footer);
  app.set_version_flag("--version", "orivanta " ORIVANTA_VERSION);
  app.require_subcommand(1);
  app.failure_message([](const CLI::App* failed, const CLI::Error& error) {
    const auto chosen = failed->get_subcommands();
    return fmt::format("orivanta: {}\nRun `orivanta {}--help` for more.\n", error.what(),
                       chosen.empty() ? "" : chosen.front()->get_name() + " ");
  });
  app.get_formatter()->column_width(28);
  addQueryOptions(app, line);
  addVenues(app, line);
  addVenue(app, line);
  addRoute(app, line);
  try {
    app.parse(argc, argv);
    return static_cast<int>(line.chosen());
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::wrongUse);
  } catch (const CommandError& error) {
    complain(error.what());
    return static_cast<int>(error.code);
  }
}

}  // namespace

}  // namespace orivanta::command

int main(int argc, char** argv) {
  // A server or a reader that hangs up is an error to report, not the end of the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  const int code = orivanta::command::run(argc, argv);
  std::cout.flush();
  std::fflush(nullptr);
  // Requests may still be running on background threads: nothing that they use is torn down.
  std::_Exit(code);
}

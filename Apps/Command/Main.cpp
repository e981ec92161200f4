// The command `orivanta`: defines its command line and runs the chosen subcommand.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Command/FindRoute.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/Command/ListVenues.hpp"
#include "Apps/Command/ManualPage.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/Render/RenderVenue.hpp"
#include "Apps/Command/Serve.hpp"
#include "Apps/Command/ShellCompletions.hpp"
#include "Apps/Command/ShowVenue.hpp"
#include "Apps/Command/ViewVenue.hpp"
#include "Apps/DemoVenue/Folder.hpp"
#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

namespace {

/// The values from the command line, and the subcommand to run.
struct CommandLine {
  ConnectionOptions connection;
  bool json = false;
  ListVenuesOptions listVenues;
  ShowVenueOptions showVenue;
  FindRouteOptions findRoute;
  RenderVenueOptions renderVenue;
  ViewVenueOptions viewVenue;
  ServeOptions serve;
  std::string shell;
  std::function<ExitCode()> chosen;
};

void addText(CLI::App& app, const char* name, std::optional<std::string>& value,
             const char* purpose, const char* type) {
  app.add_option(name, value, purpose)->type_name(type)->group("Connection");
}

void addConnectionOptions(CLI::App& app, ConnectionOptions& options) {
  addText(app, "--settings", options.settingsFolder, "Folder of property lists to use", "FOLDER");
  addText(app, "--endpoint", options.endpoint, "Root of the web API (or ORIVANTA_ENDPOINT)", "URL");
  addText(app, "--username", options.username, "User name (or ORIVANTA_USERNAME)", "TEXT");
  addText(app, "--password", options.password, "Password (better: ORIVANTA_PASSWORD)", "TEXT");
  addText(app, "--password-file", options.passwordFile,
          "File with the password, - for standard input", "FILE");
}

void addQuiet(CLI::App& app, ConnectionOptions& options) {
  app.add_flag("-q,--quiet", options.quiet, "No diagnostic lines on standard error");
}

// Queries accept these options before and after the subcommand.
void addQueryOptions(CLI::App& app, CommandLine& line) {
  addConnectionOptions(app, line.connection);
  app.add_flag("--json", line.json, "Print JSON");
  addQuiet(app, line.connection);
}

// Parsing fills `options`. The options that all queries share are copied to it before it is used.
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

void addVenues(CLI::App& app, CommandLine& line) {
  auto& query = addQuery(app, line, "venues", "List the venues", help::venuesFooter,
                         line.listVenues, listVenues);
  addQueryOptions(query, line);
}

void addSlug(CLI::App& query, std::string& slug) {
  query.add_option("SLUG", slug, "The venue's key, see `orivanta venues`")
      ->required()
      ->type_name("");
}

void addVenue(CLI::App& app, CommandLine& line) {
  ShowVenueOptions& options = line.showVenue;
  auto& query = addQuery(app, line, "venue", "Show what is in a venue", help::venueFooter, options,
                         showVenue);
  addSlug(query, options.slug);
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
  auto& query = addQuery(app, line, "route", "Find the way from one place to another",
                         help::routeFooter, options, findRoute);
  addSlug(query, options.slug);
  const auto addPlaces = [&](const char* name, std::vector<std::string>& places,
                             const char* purpose) {
    query.add_option(name, places, purpose)->type_name("PLACE")->allow_extra_args(false);
  };
  addPlaces("--from", options.from, "Where to begin; may be repeated");
  addPlaces("--to", options.to, "Where to arrive; may be repeated");
  query.add_flag("--accessible", options.accessible, "Without connectors that have steps");
  query.add_option("--batch", options.batchFile, "File of requests, - for standard input")
      ->type_name("FILE");
  addQueryOptions(query, line);
}

void addRender(CLI::App& app, CommandLine& line) {
  RenderVenueOptions& options = line.renderVenue;
  auto& query = addQuery(app, line, "render", "Draw the floors of a venue to pictures",
                         help::renderFooter, options, renderVenue);
  addSlug(query, options.slug);
  query.add_option("--map", options.map, "The floor: its name, short name or index, or all")
      ->type_name("FLOOR");
  query.add_option("--size", options.size, "Size of the picture in points")
      ->type_name("WxH")
      ->capture_default_str();
  const auto addNumber = [&](const char* name, double& value, const char* purpose,
                             const char* type) {
    query.add_option(name, value, purpose)->type_name(type)->capture_default_str();
  };
  addNumber("--scale", options.scale, "Pixels per point", "F");
  addNumber("--tilt", options.tilt, "Tilt from straight down, up to 60", "DEGREES");
  addNumber("--turn", options.turn, "Turn counterclockwise", "DEGREES");
  addNumber("--zoom", options.zoom, "Closer by this factor", "F");
  query
      .add_option("--highlight", options.highlights,
                  "Color a location, such as cafe=orange or cafe=#fbac17; may be repeated")
      ->type_name("PLACE=COLOR")
      ->allow_extra_args(false);
  query
      .add_option("--route", options.route, "Draw the way from one place to another, on each floor")
      ->expected(2)
      ->type_name("FROM TO");
  query.add_flag("--accessible", options.accessible, "The way without connectors that have steps");
  query.add_option("--marker", options.markers, "Mark a place; may be repeated")
      ->type_name("PLACE")
      ->allow_extra_args(false);
  query.add_flag("--labels", options.labels, "Write the names of the locations");
  query
      .add_option("--attribution", options.attribution,
                  "Corner for the sources of the map, such as upper-right")
      ->type_name("CORNER")
      ->capture_default_str();
  query.add_flag("--no-attribution", options.noAttribution,
                 "Leave them out of the picture, to be shown beside it");
  query.add_option("--touches", options.touchesFile, "Play recorded touches first")
      ->type_name("FILE");
  query.add_option("--frames", options.frames, "Write so many pictures and an animation of them")
      ->type_name("N");
  query.add_option("-o,--output", options.output, "The picture to write")
      ->type_name("FILE.png")
      ->capture_default_str();
  addQueryOptions(query, line);
}

void addView(CLI::App& app, CommandLine& line) {
  ViewVenueOptions& options = line.viewVenue;
  auto& command = *app.add_subcommand("view", "Walk around a venue in a window");
  command.footer(help::viewFooter);
  command.add_option("SLUG", options.slug, "The venue's key, see `orivanta venues`")->type_name("");
  command.add_option("--size", options.size, "Size of the window in points")
      ->type_name("WxH")
      ->capture_default_str();
  command.add_option("--scale", options.scale, "Pixels per point, instead of the screen's own")
      ->type_name("F");
  command.add_flag("--times", options.times,
                   "Say on standard error how long loading and drawing took");
  addConnectionOptions(command, line.connection);
  addQuiet(command, line.connection);
  command.callback([&line, &options] {
    line.chosen = [&line, &options] {
      options.connection = line.connection;
      options.demoVenue = demo::demoVenueFolder();
      return viewVenue(options);
    };
  });
}

ExitCode serveVenues(ServeOptions& options, const ConnectionOptions& connection) {
  if (options.folders.empty()) {
    const auto folder = demo::demoVenueFolder();
    if (!folder)
      throw CommandError(ExitCode::wrongUse, "the demo venue is missing; name a folder to serve");
    options.demoVenue = *folder;
  }
  options.username = connection.username;
  options.password = givenPassword(connection);
  return static_cast<ExitCode>(serve(options));
}

void addServe(CLI::App& app, CommandLine& line) {
  ServeOptions& options = line.serve;
  auto& command = *app.add_subcommand("serve", "Serve venues to this program and others");
  command.footer(help::serveFooter);
  command.add_option("FOLDER", options.folders, "Venue packages, or folders of them")
      ->type_name("");
  command.add_option("--port", options.port, "TCP port, 0 for a free one")
      ->type_name("N")
      ->capture_default_str();
  command.add_option("--address", options.address, "IP address to listen on")
      ->type_name("ADDRESS")
      ->capture_default_str();
  command.add_option("--page-size", options.pageSize, "Records on a page")
      ->check(CLI::PositiveNumber)
      ->type_name("N")
      ->capture_default_str();
  command.add_option("--origin", options.origin, "What URLs in answers begin with, see below")
      ->type_name("URL");
  command
      .add_option("--trusted-proxy", options.trustedProxies,
                  "A proxy whose X-Forwarded-Proto and -Host count; may be repeated")
      ->type_name("ADDRESS")
      ->allow_extra_args(false);
  addText(command, "--username", line.connection.username, "User name to ask for", "TEXT");
  addText(command, "--password", line.connection.password, "Password to ask for", "TEXT");
  addText(command, "--password-file", line.connection.passwordFile,
          "File with that password, - for standard input", "FILE");
  command.callback([&line, &options] {
    line.chosen = [&line, &options] { return serveVenues(options, line.connection); };
  });
}

void addCompletions(CLI::App& app, CommandLine& line) {
  auto& command = *app.add_subcommand("completions", "Print the completions for a shell");
  command.footer(help::completionsFooter);
  command.add_option("SHELL", line.shell, "bash, zsh or fish")
      ->required()
      ->check(CLI::IsMember({"bash", "zsh", "fish"}))
      ->type_name("");
  command.callback([&app, &line] {
    line.chosen = [&app, &line] {
      std::cout << (line.shell == "bash"  ? bashCompletions(app)
                    : line.shell == "zsh" ? zshCompletions(app)
                                          : fishCompletions(app));
      return ExitCode::success;
    };
  });
}

void addManual(CLI::App& app, CommandLine& line) {
  auto& command = *app.add_subcommand("manual", "Print the manual page for man(1)");
  command.callback([&app, &line] {
    line.chosen = [&app] {
      std::cout << manualPage(app, ORIVANTA_VERSION);
      return ExitCode::success;
    };
  });
}

std::string describeFailure(const CLI::App* app, const CLI::Error& error) {
  const auto chosen = app->get_subcommands();
  const auto unknown = app->remaining();
  std::string reason = error.what();
  if (chosen.empty() && !unknown.empty())
    reason = fmt::format("\"{}\" is no command or option", unknown.front());
  return fmt::format("orivanta: {}\nRun `orivanta {}--help` for more.\n",
                     foundation::printable(reason),
                     chosen.empty() ? "" : chosen.front()->get_name() + " ");
}

int run(int argc, char** argv) {
  CommandLine line;
  CLI::App app(help::description, "orivanta");
  app.footer(help::footer);
  app.set_version_flag("--version", "orivanta " ORIVANTA_VERSION);
  app.require_subcommand(1);
  app.failure_message(describeFailure);
  app.get_formatter()->column_width(28);
  addQueryOptions(app, line);
  addVenues(app, line);
  addVenue(app, line);
  addRoute(app, line);
  addRender(app, line);
  addView(app, line);
  addServe(app, line);
  addCompletions(app, line);
  addManual(app, line);
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
  // If a server or a reader closes the connection, writing fails instead of ending the program.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  const int code = orivanta::command::run(argc, argv);
  std::cout.flush();
  std::fflush(nullptr);
  // Requests may still be running on background threads, so nothing that they use may be destroyed.
  std::_Exit(code);
}

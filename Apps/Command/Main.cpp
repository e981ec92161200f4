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

#include "Apps/Command/AuditVenues.hpp"
#include "Apps/Command/CheckSource.hpp"
#include "Apps/Command/FindRoute.hpp"
#include "Apps/Command/HelpTexts.hpp"
#include "Apps/Command/ImportBuilding.hpp"
#include "Apps/Command/ListCosts.hpp"
#include "Apps/Command/ListVenues.hpp"
#include "Apps/Command/ManualPage.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/PublishVenues.hpp"
#include "Apps/Command/Render/RenderVenue.hpp"
#include "Apps/Command/Serve.hpp"
#include "Apps/Command/ShellCompletions.hpp"
#include "Apps/Command/ShowVenue.hpp"
#include "Apps/Command/ViewVenue.hpp"
#include "Apps/Command/WalkRoute.hpp"
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
  ImportOptions import;
  ServeOptions serve;
  AuditOptions audit;
  CheckOptions check;
  PublishOptions publish;
  WalkOptions walk;
  CostsOptions costs;
  std::string shell;
  std::function<ExitCode()> chosen;
};

void addText(CLI::App& app, const char* name, std::optional<std::string>& value,
             const char* purpose, const char* type) {
  app.add_option(name, value, purpose)->type_name(type)->group("Connection");
}

void addConnectionOptions(CLI::App& app, ConnectionOptions& options) {
  addText(app, "--settings", options.settingsFolder, "Folder that contains the property lists",
          "FOLDER");
  addText(app, "--endpoint", options.endpoint, "Root URL of the web API (or ORIVANTA_ENDPOINT)",
          "URL");
  addText(app, "--username", options.username, "User name (or ORIVANTA_USERNAME)", "TEXT");
  addText(app, "--password", options.password, "Password (ORIVANTA_PASSWORD is safer)", "TEXT");
  addText(app, "--password-file", options.passwordFile,
          "File that contains the password, or - for standard input", "FILE");
}

void addQuiet(CLI::App& app, ConnectionOptions& options) {
  app.add_flag("-q,--quiet", options.quiet, "Write no diagnostics to standard error");
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
  query.add_option("SLUG", slug, "Slug of the venue, see `orivanta venues`")
      ->required()
      ->type_name("");
}

void addVenue(CLI::App& app, CommandLine& line) {
  ShowVenueOptions& options = line.showVenue;
  auto& query = addQuery(app, line, "venue", "Show the contents of a venue", help::venueFooter,
                         options, showVenue);
  addSlug(query, options.slug);
  query
      .add_option("--locations", options.locations,
                  "List the locations, or those whose name or identifier contains TEXT")
      ->expected(0, 1)
      ->type_name("[TEXT]");
  query.add_flag("--accessible", options.accessible, "Exclude connectors with steps");
  addQueryOptions(query, line);
}

// Options of all commands that search routes for visitors.
void addProfileOptions(CLI::App& app, GuideOptions& options, const char* group) {
  planning::PlanQuery& query = options.query;
  const auto add = [&](const char* name, auto& value, const char* purpose, const char* type) {
    return app.add_option(name, value, purpose)->type_name(type)->group(group);
  };
  add("--profile", options.profile, "fastest, step-free, prefer-lift or no-escalator", "PROFILE")
      ->check(CLI::IsMember(planning::profileNames()));
  add("--closed", query.closed, "Closed connector, location or node; may be repeated", "ID")
      ->allow_extra_args(false);
  app.add_flag("--avoid-outdoors", query.avoidOutdoors, "Avoid outdoor floors")->group(group);
  add("--speed", query.walkingSpeed, "Walking speed, 0.2 to 5 (default: 1.2, step-free 1.0)",
      "M/S");
}

// Options of the commands that print instructions.
void addGuideOptions(CLI::App& app, GuideOptions& options, const char* group) {
  addProfileOptions(app, options, group);
  planning::PlanQuery& query = options.query;
  const auto add = [&](const char* name, auto& value, const char* purpose, const char* type) {
    return app.add_option(name, value, purpose)->type_name(type)->group(group);
  };
  add("--via", query.via, "Stop in between; up to 48, or 200 with --best-order", "PLACE")
      ->allow_extra_args(false);
  app.add_flag("--best-order", query.bestOrder,
               "Visit the stops in the order that takes least time")
      ->group(group);
  add("--nearest", query.nearest, "The nearest place of a category instead of --to", "CATEGORY");
  add("--at", query.at, "Departure in local time, to respect opening hours", "2026-11-21T18:30");
  add("--language", options.language, "Language of names and instructions, such as de", "TAG");
}

void addEnds(CLI::App& query, std::vector<std::string>& from, std::vector<std::string>& to) {
  const auto addPlaces = [&](const char* name, std::vector<std::string>& places,
                             const char* purpose) {
    query.add_option(name, places, purpose)->type_name("PLACE")->allow_extra_args(false);
  };
  addPlaces("--from", from, "Start of the route; may be repeated");
  addPlaces("--to", to, "Destination of the route; may be repeated");
}

void addRoute(CLI::App& app, CommandLine& line) {
  FindRouteOptions& options = line.findRoute;
  auto& query = addQuery(app, line, "route", "Find a route between two places", help::routeFooter,
                         options, findRoute);
  addSlug(query, options.slug);
  addEnds(query, options.from, options.to);
  query.add_flag("--accessible", options.accessible, "Avoid connectors with steps");
  const char* group = "Guidance (each option implies --guide)";
  query.add_flag("--guide", options.guidance.guide, "Print instructions for visitors")
      ->group(group);
  query
      .add_option("--alternatives", options.guidance.query.alternatives,
                  "Number of further routes, up to 4")
      ->type_name("N")
      ->group(group);
  addGuideOptions(query, options.guidance, group);
  query.add_option("--batch", options.batchFile, "File of requests, or - for standard input")
      ->type_name("FILE");
  addQueryOptions(query, line);
}

void addWalk(CLI::App& app, CommandLine& line) {
  WalkOptions& options = line.walk;
  auto& query = addQuery(app, line, "walk", "Simulate a visitor who follows a route",
                         help::walkFooter, options, walkRoute);
  addSlug(query, options.slug);
  addEnds(query, options.from, options.to);
  addGuideOptions(query, options.guidance, "Guidance");
  query.add_option("--speed-up", options.speedUp, "Simulated seconds in a second")
      ->check(CLI::Range(0.01, 1e6))
      ->type_name("N")
      ->capture_default_str();
  query.add_flag("--instant", options.instant, "Do not wait");
  query.add_option("--off-route", options.offRoute, "Leave the route after this time")
      ->check(CLI::NonNegativeNumber)
      ->type_name("SECONDS");
  addQueryOptions(query, line);
}

void addCosts(CLI::App& app, CommandLine& line) {
  CostsOptions& options = line.costs;
  auto& query = addQuery(app, line, "costs", "Print the costs of the routes between places",
                         help::costsFooter, options, listCosts);
  addSlug(query, options.slug);
  query
      .add_option("--places", options.placesFile,
                  "File with a place per line, or - for standard input")
      ->required()
      ->type_name("FILE");
  addProfileOptions(query, options.guidance, "Guidance");
  addQueryOptions(query, line);
}

void addRender(CLI::App& app, CommandLine& line) {
  RenderVenueOptions& options = line.renderVenue;
  auto& query = addQuery(app, line, "render", "Render the floors of a venue to images",
                         help::renderFooter, options, renderVenue);
  addSlug(query, options.slug);
  query.add_option("--map", options.map, "Name, short name or index of the floor, or all")
      ->type_name("FLOOR");
  query.add_option("--size", options.size, "Size of the image in points")
      ->type_name("WxH")
      ->capture_default_str();
  const auto addNumber = [&](const char* name, double& value, const char* purpose,
                             const char* type) {
    query.add_option(name, value, purpose)->type_name(type)->capture_default_str();
  };
  addNumber("--scale", options.scale, "Pixels per point", "F");
  addNumber("--tilt", options.tilt, "Camera tilt from the vertical, less than 60", "DEGREES");
  addNumber("--turn", options.turn, "Counterclockwise rotation", "DEGREES");
  addNumber("--zoom", options.zoom, "Zoom factor", "F");
  query
      .add_option("--highlight", options.highlights,
                  "Highlight a location, for example cafe=orange or cafe=#fbac17; may be repeated")
      ->type_name("PLACE=COLOR")
      ->allow_extra_args(false);
  query.add_option("--route", options.route, "Draw a route between two places on each floor")
      ->expected(2)
      ->type_name("FROM TO");
  query.add_flag("--accessible", options.accessible, "Avoid connectors with steps in the route");
  query.add_option("--marker", options.markers, "Mark a location; may be repeated")
      ->type_name("PLACE")
      ->allow_extra_args(false);
  query.add_flag("--labels", options.labels, "Show the names of the locations");
  query
      .add_option("--attribution", options.attribution,
                  "Corner for the map's attribution, for example upper-right")
      ->type_name("CORNER")
      ->capture_default_str();
  query.add_flag("--no-attribution", options.noAttribution,
                 "Print the attribution instead of drawing it");
  query.add_option("--touches", options.touchesFile, "Replay recorded touches before rendering")
      ->type_name("FILE");
  query.add_option("--frames", options.frames, "Write N images and an animated GIF of them")
      ->type_name("N");
  query.add_option("-o,--output", options.output, "File to write")
      ->type_name("FILE.png")
      ->capture_default_str();
  addQueryOptions(query, line);
}

void addView(CLI::App& app, CommandLine& line) {
  ViewVenueOptions& options = line.viewVenue;
  auto& command = *app.add_subcommand("view", "Explore a venue in a window");
  command.footer(help::viewFooter);
  command.add_option("SLUG", options.slug, "Slug of the venue, see `orivanta venues`")
      ->type_name("");
  command.add_option("--size", options.size, "Size of the window in points")
      ->type_name("WxH")
      ->capture_default_str();
  command
      .add_option("--scale", options.scale, "Pixels per point; the default is that of the screen")
      ->type_name("F");
  command
      .add_option("--language", options.language,
                  "Language of the window and of names, such as de; the default is yours")
      ->type_name("TAG");
  command.add_flag("--walk", options.walk, "Simulate a walk along each route, see the key W");
  command.add_flag("--times", options.times,
                   "Print timings of loading and drawing to standard error");
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

void addImportChoices(CLI::App& command, ImportOptions& options, const char* group) {
  const auto add = [&](const char* name, auto& value, const char* purpose, const char* type) {
    return command.add_option(name, value, purpose)->type_name(type)->group(group);
  };
  add("--fixes", options.fixes, "Corrections that outlive a new import", "FILE");
  add("--format", options.format, "Format of the source; recognized by default", "FORMAT")
      ->check(CLI::IsMember(importFormats()));
  add("--building", options.building, "Import only this building of the source", "NAME");
  add("--bounds", options.bounds, "Import only what lies within, in degrees", "S,W,N,E");
  add("--language", options.languages, "Languages for the names, best first, such as de,en", "TAGS")
      ->allow_extra_args(false);
  add("--level-shift", options.levelShifts, "Add N to the levels of a building; may be repeated",
      "BUILDING=N")
      ->allow_extra_args(false);
  add("--storey-height", options.storeyHeight, "Meters between floors if the source has no heights",
      "M")
      ->check(CLI::Range(1.0, 100.0))
      ->capture_default_str();
  add("--network", options.network,
      "Walking network: auto, source (only the source's) or derive (from the drawn areas)",
      "CHOICE")
      ->check(CLI::IsMember({"auto", "source", "derive"}))
      ->capture_default_str();
  add("--doors", options.doors, "Rooms without a door: guess one, or strict (none)", "CHOICE")
      ->check(CLI::IsMember({"guess", "strict"}))
      ->capture_default_str();
}

void addImport(CLI::App& app, CommandLine& line) {
  ImportOptions& options = line.import;
  auto& command = *app.add_subcommand("import", "Make a venue package of your own building");
  command.footer(help::importFooter);
  command
      .add_option("SOURCE", options.sources,
                  "Files, folder or archive: IMDF, OpenStreetMap, IndoorGML, station network")
      ->required()
      ->type_name("");
  command.add_option("-o,--output", options.output, "Venue package to write or to replace")
      ->required()
      ->type_name("FOLDER");
  addImportChoices(command, options, "Options");
  command.add_option("--report", options.report, "Write what to look at, with plans")
      ->type_name("FILE.html");
  command.add_flag("--strict", options.strict, "Write nothing if there is something to look at");
  command.add_flag("--json", line.json, "Print a line of JSON for each finding and a summary");
  addQuiet(command, line.connection);
  command.callback([&line, &options] {
    line.chosen = [&line, &options] {
      options.json = line.json;
      options.quiet = line.connection.quiet;
      return importBuilding(options);
    };
  });
}

ExitCode serveVenues(ServeOptions& options, const ConnectionOptions& connection) {
  if (options.folders.empty()) {
    const auto folder = demo::demoVenueFolder();
    if (!folder)
      throw CommandError(ExitCode::wrongUse,
                         "the demo venue is missing; specify a folder to serve");
    options.demoVenue = *folder;
  }
  options.username = connection.username;
  options.password = givenPassword(connection);
  return static_cast<ExitCode>(serve(options));
}

void addServe(CLI::App& app, CommandLine& line) {
  ServeOptions& options = line.serve;
  auto& command = *app.add_subcommand("serve", "Serve venues over HTTP");
  command.footer(help::serveFooter);
  command.add_option("FOLDER", options.folders, "Venue packages, or folders that contain them")
      ->type_name("");
  command.add_option("--port", options.port, "TCP port; 0 selects a free one")
      ->type_name("N")
      ->capture_default_str();
  command.add_option("--address", options.address, "IP address to listen on")
      ->type_name("ADDRESS")
      ->capture_default_str();
  command.add_option("--page-size", options.pageSize, "Records per page")
      ->check(CLI::PositiveNumber)
      ->type_name("N")
      ->capture_default_str();
  command.add_option("--origin", options.origin, "Origin of the URLs in responses, see below")
      ->type_name("URL");
  command
      .add_option("--trusted-proxy", options.trustedProxies,
                  "Proxy whose X-Forwarded-* headers are trusted; may be repeated")
      ->type_name("ADDRESS")
      ->allow_extra_args(false);
  addText(command, "--username", line.connection.username, "User name that clients must send",
          "TEXT");
  addText(command, "--password", line.connection.password, "Password that clients must send",
          "TEXT");
  addText(command, "--password-file", line.connection.passwordFile,
          "File that contains the password, or - for standard input", "FILE");
  command.callback([&line, &options] {
    line.chosen = [&line, &options] { return serveVenues(options, line.connection); };
  });
}

void addAudit(CLI::App& app, CommandLine& line) {
  AuditOptions& options = line.audit;
  auto& command =
      *app.add_subcommand("audit", "Find the places that some visitors cannot reach or leave");
  command.footer(help::auditFooter);
  command.add_option("FOLDER", options.folders, "Venue packages, or folders of them")
      ->required()
      ->type_name("");
  command.add_option("--picture", options.picture, "Draw the floors, with these places colored")
      ->type_name("FILE.png");
  command.callback(
      [&line, &options] { line.chosen = [&options] { return auditVenues(options); }; });
}

void addCheck(CLI::App& app, CommandLine& line) {
  CheckOptions& options = line.check;
  auto& command = *app.add_subcommand("check", "Find the mistakes in a package or a source");
  command.footer(help::checkFooter);
  command
      .add_option("PATH", options.import.sources,
                  "Venue packages, folders of them, or the files of a source to import")
      ->required()
      ->type_name("");
  command.add_option("--html", options.html, "Write a report with a plan of each storey")
      ->type_name("FILE.html");
  command.add_flag("--strict", options.strict, "Exit with code 1 also for warnings");
  command.add_flag("--json", line.json, "Print a line of JSON for each finding");
  addQuiet(command, line.connection);
  addImportChoices(command, options.import, "Sources");
  command.callback([&line, &options] {
    line.chosen = [&line, &options] {
      options.json = line.json;
      options.import.quiet = line.connection.quiet;
      return checkSource(options);
    };
  });
}

void addPublish(CLI::App& app, CommandLine& line) {
  PublishOptions& options = line.publish;
  auto& command = *app.add_subcommand("publish", "Write venues as files for a static web server");
  command.footer(help::publishFooter);
  command.add_option("PACKAGE", options.packages, "Venue packages, or folders of them")
      ->required()
      ->type_name("");
  command.add_option("-o,--output", options.output, "Folder to write or to replace")
      ->required()
      ->type_name("FOLDER");
  command.add_option("--base-url", options.baseUrl, "URL at which clients will find the folder")
      ->required()
      ->type_name("URL");
  command.add_flag("--force", options.force, "Publish packages with violations");
  command.callback(
      [&line, &options] { line.chosen = [&options] { return publishVenues(options); }; });
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
  auto& command = *app.add_subcommand("manual", "Print the manual page in man(1) format");
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
    reason = fmt::format("unknown command or option \"{}\"", unknown.front());
  return fmt::format("orivanta: {}\nRun `orivanta {}--help` for more information.\n",
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
  addWalk(app, line);
  addCosts(app, line);
  addRender(app, line);
  addView(app, line);
  addImport(app, line);
  addServe(app, line);
  addAudit(app, line);
  addCheck(app, line);
  addPublish(app, line);
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

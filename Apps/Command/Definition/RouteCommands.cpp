#include "Apps/Command/Definition/CommandLine.hpp"
#include "Apps/Command/Definition/SharedOptions.hpp"
#include "Apps/Command/HelpTexts.hpp"

namespace orivanta::command {

namespace {

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

}  // namespace

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

}  // namespace orivanta::command

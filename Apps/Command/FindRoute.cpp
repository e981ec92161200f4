#include "Apps/Command/FindRoute.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <filesystem>
#include <fstream>
#include <iostream>

#include "Apps/Command/Batch.hpp"
#include "Apps/Command/Output.hpp"
#include "Apps/Command/Places.hpp"
#include "Apps/Command/RouteDescription.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Directions.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

void checkUse(const FindRouteOptions& options) {
  const auto& nearest = options.guidance.query.nearest;
  const bool placesGiven = !options.from.empty() || !options.to.empty() || nearest;
  if (options.batchFile && placesGiven)
    throw CommandError(ExitCode::wrongUse, "--batch cannot be combined with --from or --to");
  if (options.batchFile && options.guidance.givenForOneRoute())
    throw CommandError(ExitCode::wrongUse,
                       "--batch cannot be combined with options of guidance except --language; the "
                       "requests have members for them");
  if (!options.to.empty() && nearest)
    throw CommandError(ExitCode::wrongUse, "specify either --to or --nearest");
  if (!options.batchFile && (options.from.empty() || (options.to.empty() && !nearest)))
    throw CommandError(ExitCode::wrongUse, "specify --from and --to, or --batch");
  if (options.batchFile == "-" && options.connection.passwordFile == "-")
    throw CommandError(ExitCode::wrongUse,
                       "standard input cannot be used for both --batch and --password-file");
}

std::ifstream openBatch(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  std::error_code failure;
  if (!file || std::filesystem::is_directory(name, failure))
    throw CommandError(ExitCode::wrongUse, fmt::format("--batch: cannot read \"{}\"", name));
  return file;
}

std::shared_ptr<Venue> load(const FindRouteOptions& options) {
  preferLanguage(options.guidance.language);
  return Session(options.connection)
      .loadVenue(options.slug, options.accessible,
                 {"location", "map", "node", "vortex", "polygon"});
}

ExitCode guide(const FindRouteOptions& options) {
  const auto query = options.guidance.queryFor(options.from, options.to,
                                               options.accessible ? "step-free" : "fastest");
  return guideRoute(*load(options), query, options.json);
}

ExitCode answerBatch(const FindRouteOptions& options) {
  std::ifstream file;
  if (options.batchFile != "-") file = openBatch(*options.batchFile);
  const auto venue = load(options);
  answerLines(file.is_open() ? file : std::cin, BatchRouter(*venue), writeOutput);
  return ExitCode::success;
}

ExitCode reportNoRoute(const FindRouteOptions& options, const RouteEnd& from, const RouteEnd& to) {
  if (options.json) writeOutput("{\"path\":null,\"weight\":null}\n");
  std::string text =
      fmt::format("no {}route from {} to {}", options.accessible ? "accessible " : "",
                  fmt::join(options.from, ", "), fmt::join(options.to, ", "));
  for (const RouteEnd* end : {&from, &to})
    if (end->nodes.empty())
      text += fmt::format("; {} has no nodes", end->location ? *end->location->name : "one side");
  complain(text);
  return ExitCode::notFound;
}

}  // namespace

ExitCode findRoute(const FindRouteOptions& options) {
  checkUse(options);
  if (options.batchFile) return answerBatch(options);
  if (options.guidance.given()) return guide(options);
  const auto venue = load(options);
  const RouteEnd from = findRouteEnd(*venue, options.from);
  const RouteEnd to = findRouteEnd(*venue, options.to);
  const auto directions = getDirections(*venue, from, to);
  if (!directions) return reportNoRoute(options, from, to);
  const RouteDescription route = describeRoute(*venue, directions);
  writeOutput(options.json ? text::jsonText(routeJson(route)) + '\n' : routeText(route));
  return ExitCode::success;
}

}  // namespace orivanta::command

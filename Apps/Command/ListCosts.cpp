#include "Apps/Command/ListCosts.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <vector>

#include "Apps/Command/Output.hpp"
#include "Apps/Command/Session.hpp"
#include "Apps/Text/Json.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace json = boost::json;
using Costs = guidance::CostRows;

namespace {

std::vector<std::string> linesOf(std::istream& input) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(input, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> readPlaces(const std::string& name) {
  std::ifstream file;
  if (name != "-") file.open(name, std::ios::binary);
  std::error_code failure;
  if (!file || std::filesystem::is_directory(name, failure))
    throw CommandError(ExitCode::wrongUse, fmt::format("--places: cannot read \"{}\"", name));
  auto places = linesOf(name == "-" ? std::cin : file);
  if (places.empty())
    throw CommandError(ExitCode::wrongUse, fmt::format("--places: no place in \"{}\"", name));
  return places;
}

std::string costsText(const std::vector<std::string>& places, const Costs& costs) {
  std::string text;
  for (const std::string& place : places) text += '\t' + foundation::printable(place);
  text += '\n';
  for (std::size_t row = 0; row < places.size(); ++row) {
    text += foundation::printable(places[row]);
    for (const std::int64_t cost : costs[row]) text += fmt::format("\t{}", cost);
    text += '\n';
  }
  return text;
}

json::object costsJson(const std::vector<std::string>& places, const Costs& costs) {
  json::array rows;
  for (const auto& row : costs) rows.push_back(json::array(row.begin(), row.end()));
  return {{"places", json::array(places.begin(), places.end())}, {"costs", std::move(rows)}};
}

}  // namespace

ExitCode listCosts(const CostsOptions& options) try {
  const auto query = options.guidance.queryFor({}, {});
  const guidance::Profile profile = planning::profileOf(query);
  const auto places = readPlaces(options.placesFile);
  if (places.size() > guidance::Guide::mostCosts / places.size())
    throw CommandError(
        ExitCode::wrongUse,
        fmt::format("--places: {} places are too many; the table has at most {} costs",
                    places.size(), guidance::Guide::mostCosts));
  const auto venue =
      Session(options.connection)
          .loadVenue(options.slug, false, {"location", "map", "node", "vortex", "polygon"});
  std::vector<guidance::Stop> stops;
  stops.reserve(places.size());
  for (const std::string& place : places) stops.push_back(planning::stopNamed(*venue, place));
  const auto costs =
      guideFor(*venue)->costs(stops, stops, profile, guidance::Closures(query.closed));
  if (!costs) throw CommandError(ExitCode::wrongUse, "--places: " + costs.error().description);
  writeOutput(options.json ? text::jsonText(costsJson(places, *costs)) + '\n'
                           : costsText(places, *costs));
  return ExitCode::success;
} catch (const planning::QueryError& error) {
  throw commandError(error);
}

}  // namespace orivanta::command

#include "Apps/Planning/PlanQuery.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

#include "Platform/Foundation/DecimalNumbers.hpp"
#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta::planning {

using foundation::label;
using foundation::printable;
using guidance::Profile;
using guidance::Request;
using guidance::Stop;

namespace {

constexpr std::size_t mostCandidatesListed = 20;
constexpr double slowest = 0.2;
constexpr double fastest = 5.0;

[[noreturn]] void fail(QueryError::Kind kind, const std::string& message) {
  throw QueryError(kind, message);
}

std::string ambiguity(const std::string& text,
                      const std::vector<std::shared_ptr<Location>>& candidates) {
  std::string message = fmt::format(
      "\"{}\" names {} places; give the identifier of one:", printable(text), candidates.size());
  for (std::size_t i = 0; i < std::min(candidates.size(), mostCandidatesListed); ++i)
    message += fmt::format("{} {} ({}, {})", i == 0 ? "" : ",", printable(*candidates[i]->id),
                           label(*candidates[i]->name), floorLabels(floorsOf(*candidates[i])));
  if (candidates.size() > mostCandidatesListed)
    message += fmt::format(" and {} more", candidates.size() - mostCandidatesListed);
  return message;
}

std::optional<double> number(std::string_view text) {
  double value = 0.0;
  const std::size_t length = foundation::readNumber(text, value);
  if (length == 0 || length < text.size() || !std::isfinite(value)) return std::nullopt;
  return value;
}

// Parses "@FLOOR,X,Y". The floor's name may contain commas.
Stop positionNamed(const Venue& venue, const std::string& text) {
  const std::size_t second = text.rfind(',');
  const std::size_t first =
      second == 0 || second == std::string::npos ? std::string::npos : text.rfind(',', second - 1);
  if (first == std::string::npos)
    fail(QueryError::Kind::invalid,
         fmt::format("\"{}\" is not a position such as @FLOOR,X,Y", printable(text)));
  const auto x = number(std::string_view(text).substr(first + 1, second - first - 1));
  const auto y = number(std::string_view(text).substr(second + 1));
  if (!x || !y)
    fail(QueryError::Kind::invalid,
         fmt::format("\"{}\" is not a position such as @FLOOR,X,Y", printable(text)));
  const auto map = floorNamed(*venue.maps, std::string_view(text).substr(1, first - 1));
  if (!map)
    fail(QueryError::Kind::notFound,
         fmt::format("the venue has no floor \"{}\"", printable(text.substr(1, first - 1))));
  return guidance::Position{map, *x, *y};
}

NodeList nodesOf(const Stop& stop) {
  if (const auto* location = std::get_if<std::shared_ptr<Location>>(&stop))
    return (*location)->nodes;
  if (const auto* node = std::get_if<std::shared_ptr<Node>>(&stop)) return {*node};
  fail(QueryError::Kind::invalid, "a position cannot be one of several starts or destinations");
}

}  // namespace

const std::vector<std::string>& profileNames() {
  static const std::vector<std::string> names = {"fastest", "step-free", "prefer-lift",
                                                 "no-escalator"};
  return names;
}

std::optional<Profile> profileNamed(std::string_view name) {
  if (name == "fastest") return Profile::fastest();
  if (name == "step-free") return Profile::stepFree();
  if (name == "prefer-lift") return Profile::preferLift();
  if (name == "no-escalator") return Profile::noEscalator();
  return std::nullopt;
}

Profile profileOf(const PlanQuery& query) {
  const auto named = profileNamed(query.profile);
  if (!named)
    fail(QueryError::Kind::invalid,
         fmt::format("\"{}\" is not a profile; the profiles are {}", printable(query.profile),
                     fmt::join(profileNames(), ", ")));
  Profile profile = *named;
  if (query.avoidOutdoors) profile.outdoors = guidance::Use::avoided;
  if (query.walkingSpeed) {
    if (!(*query.walkingSpeed >= slowest && *query.walkingSpeed <= fastest))
      fail(QueryError::Kind::invalid,
           fmt::format("the walking speed must be {} to {} m/s", slowest, fastest));
    profile.walkingMetersPerSecond = *query.walkingSpeed;
  }
  return profile;
}

Stop stopNamed(const Venue& venue, const std::string& text) {
  if (text.empty()) fail(QueryError::Kind::invalid, "a place must not be an empty text");
  if (text.front() == '@') return positionNamed(venue, text);
  const auto [locations, node] = placesNamed(venue, text);
  if (node) return node;
  if (locations.empty())
    fail(QueryError::Kind::notFound,
         fmt::format("the venue has no location or node \"{}\"", printable(text)));
  if (locations.size() > 1) fail(QueryError::Kind::ambiguous, ambiguity(text, locations));
  return locations.front();
}

Stop stopNamed(const Venue& venue, const std::vector<std::string>& texts) {
  if (texts.size() == 1) return stopNamed(venue, texts.front());
  NodeList nodes;
  std::unordered_set<const Node*> seen;
  for (const std::string& text : texts)
    for (const auto& node : nodesOf(stopNamed(venue, text)))
      if (seen.insert(node.get()).second) nodes.push_back(node);
  return nodes;
}

std::shared_ptr<Category> categoryNamed(const Venue& venue, const std::string& text) {
  const auto& categories = *venue.categories;
  const auto find = [&](const auto& matches) -> std::shared_ptr<Category> {
    const auto found = std::find_if(categories.begin(), categories.end(), matches);
    return found == categories.end() ? nullptr : *found;
  };
  if (auto found = find([&](const auto& category) { return category->id == text; })) return found;
  if (auto found = find([&](const auto& category) { return category->id == "cat-" + text; }))
    return found;
  const std::string folded = caseFolded(text);
  if (auto found =
          find([&](const auto& category) { return caseFolded(*category->name) == folded; }))
    return found;
  std::string message = fmt::format("the venue has no category \"{}\"", printable(text));
  std::string separator = "; it has ";
  for (const auto& category : categories) {
    if (message.size() > 2000) break;
    message += std::exchange(separator, ", ") + printable(*category->id);
  }
  fail(QueryError::Kind::notFound, message);
}

Request requestOf(const Venue& venue, const PlanQuery& query, const guidance::Closures& closures) {
  using Kind = QueryError::Kind;
  Request request;
  if (query.from.empty()) fail(Kind::invalid, "the start of the route is missing");
  if (query.nearest && !query.to.empty())
    fail(Kind::invalid, "give either a destination or the category of the nearest one");
  if (query.to.empty() && !query.nearest)
    fail(Kind::invalid, "the destination of the route is missing");
  const std::size_t most = query.bestOrder ? Request::mostStopsInBestOrder : Request::mostStops;
  if (query.via.size() + 2 > most)
    fail(Kind::invalid, fmt::format("a route has at most {} stops{}", most,
                                    query.bestOrder ? " in the best order" : ""));
  request.stops.push_back(stopNamed(venue, query.from));
  for (const std::string& text : query.via) request.stops.push_back(stopNamed(venue, text));
  if (query.nearest)
    request.stops.emplace_back(categoryNamed(venue, *query.nearest));
  else
    request.stops.push_back(stopNamed(venue, query.to));
  request.profile = profileOf(query);
  if (query.at) {
    request.at = guidance::LocalTime::parse(*query.at);
    if (!request.at)
      fail(Kind::invalid, fmt::format("\"{}\" is not a local time such as 2026-11-21T18:30",
                                      printable(*query.at)));
  }
  if (query.alternatives < 0 || query.alternatives > mostAlternatives)
    fail(Kind::invalid,
         fmt::format("the number of alternatives must be 0 to {}", mostAlternatives));
  request.alternatives = query.alternatives;
  request.bestOrder = query.bestOrder;
  std::vector<std::string> closed = closures.identifiers();
  closed.insert(closed.end(), query.closed.begin(), query.closed.end());
  request.closures = guidance::Closures(std::move(closed));
  return request;
}

}  // namespace orivanta::planning

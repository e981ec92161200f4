#include "Apps/Command/GuideBatch.hpp"

#include <fmt/format.h>

#include <array>
#include <boost/json/value.hpp>
#include <cmath>
#include <string_view>
#include <vector>

#include "Apps/Command/GuideRoute.hpp"
#include "Apps/Planning/PlanJson.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

using planning::PlanQuery;
using planning::QueryError;

namespace {

constexpr std::array<std::string_view, 12> members = {
    "guide", "path",   "profile",  "via",   "bestOrder",    "nearest",
    "at",    "closed", "language", "speed", "alternatives", "avoidOutdoors"};

[[noreturn]] void refuse(std::string_view member, std::string_view kind) {
  throw QueryError(QueryError::Kind::invalid, fmt::format("\"{}\" must be {}", member, kind));
}

// Returns raw data without a value if the member is missing or null.
RawData valueOf(const RawData& request, std::string_view member) {
  RawData value = request[member];
  return value.data() && value.data()->is_null() ? RawData() : value;
}

std::optional<std::string> textOf(const RawData& request, std::string_view member) {
  const RawData value = valueOf(request, member);
  if (!value.data()) return std::nullopt;
  auto text = value.string();
  if (!text) refuse(member, "a string");
  return text;
}

bool flagOf(const RawData& request, std::string_view member) {
  const RawData value = valueOf(request, member);
  if (!value.data()) return false;
  if (!value.data()->is_bool()) refuse(member, "true or false");
  return value.data()->get_bool();
}

std::optional<double> numberOf(const RawData& request, std::string_view member) {
  const RawData value = valueOf(request, member);
  if (!value.data()) return std::nullopt;
  if (!value.data()->is_number()) refuse(member, "a number");
  return value.doubleValue();
}

std::vector<std::string> textsOf(const RawData& request, std::string_view member) {
  const RawData value = valueOf(request, member);
  if (!value.data()) return {};
  if (const auto text = value.string()) return {*text};
  if (!value.data()->is_array()) refuse(member, "a list of strings");
  std::vector<std::string> texts;
  for (const RawData& element : value.arrayValue()) {
    auto text = element.string();
    if (!text) refuse(member, "a list of strings");
    texts.push_back(std::move(*text));
  }
  return texts;
}

// Returns the texts of one end, which is "from" or "to".
std::vector<std::string> endOf(const RawData& request, const std::string& member) {
  const auto location = textOf(request, member + "Location");
  if (!location) return textsOf(request, member);
  if (request[member].data())
    throw QueryError(QueryError::Kind::invalid,
                     fmt::format("specify either \"{0}\" or \"{0}Location\", not both", member));
  return {*location};
}

PlanQuery queryOf(const RawData& request) {
  PlanQuery query;
  query.from = endOf(request, "from");
  query.to = endOf(request, "to");
  query.via = textsOf(request, "via");
  query.closed = textsOf(request, "closed");
  query.nearest = textOf(request, "nearest");
  query.bestOrder = flagOf(request, "bestOrder");
  query.avoidOutdoors = flagOf(request, "avoidOutdoors");
  query.walkingSpeed = numberOf(request, "speed");
  query.at = textOf(request, "at");
  if (auto profile = textOf(request, "profile")) query.profile = std::move(*profile);
  if (const auto count = numberOf(request, "alternatives")) {
    if (!(*count >= 0.0 && *count <= planning::mostAlternatives && *count == std::floor(*count)))
      refuse("alternatives", fmt::format("an integer from 0 to {}", planning::mostAlternatives));
    query.alternatives = static_cast<int>(*count);
  }
  return query;
}

}  // namespace

bool GuideBatch::isGuided(const RawData& request) {
  for (const std::string_view member : members) {
    const RawData value = valueOf(request, member);
    if (value.data() && !(value.data()->is_bool() && !value.data()->get_bool())) return true;
  }
  return false;
}

boost::json::object GuideBatch::answer(const RawData& request, const NodeList& from,
                                       const NodeList& to) {
  PlanQuery query = queryOf(request);
  // The nodes are known already, so only the first one is looked up.
  if (!from.empty()) query.from.resize(1);
  if (!to.empty()) query.to.resize(1);
  guidance::Request wanted = planning::requestOf(venue_, query);
  if (!from.empty()) wanted.stops.front() = from;
  if (!to.empty()) wanted.stops.back() = to;
  return planning::planJson(guide(), guide().plan(wanted), wanted, narrator(request));
}

boost::json::object GuideBatch::describe(const RawData& request, const NodeList& path) {
  const PlanQuery query = queryOf(request);
  const auto placeOf = [&](const std::vector<std::string>& texts) -> std::shared_ptr<Location> {
    if (texts.size() != 1) return nullptr;
    const guidance::Stop stop = planning::stopNamed(venue_, texts.front());
    const auto* location = std::get_if<std::shared_ptr<Location>>(&stop);
    return location == nullptr ? nullptr : *location;
  };
  const auto itinerary =
      guide().itinerary(path, placeOf(query.from), placeOf(query.to), planning::profileOf(query));
  if (!itinerary)
    throw QueryError(QueryError::Kind::invalid,
                     "\"path\" must be a list of nodes each of which is connected to the next");
  boost::json::object result = planning::itineraryJson(guide(), *itinerary, narrator(request));
  result["language"] = narrator(request).language();
  return result;
}

const guidance::Guide& GuideBatch::guide() {
  if (!guide_) guide_ = guidance::Guide::make(venue_);
  if (!guide_) throw QueryError(QueryError::Kind::notFound, "the venue has no walking network");
  return *guide_;
}

const guidance::Narrator& GuideBatch::narrator(const RawData& request) {
  const auto language = guidance::Narrator::bestLanguage(
      textOf(request, "language").value_or(preferredLanguageList()));
  return narrators_.try_emplace(language, language).first->second;
}

}  // namespace orivanta::command

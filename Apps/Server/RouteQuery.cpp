#include "Apps/Server/RouteQuery.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace orivanta::server {

using planning::PlanQuery;
using planning::QueryError;

namespace {

constexpr std::size_t longestValue = 1000;  // in bytes
constexpr std::size_t mostClosed = 1000;
// Every place is looked up by its name.
constexpr std::size_t mostEnds = 32;

[[noreturn]] void refuse(const std::string& message) {
  throw QueryError(QueryError::Kind::invalid, message);
}

std::vector<std::string> valuesOf(const Target& target, std::string_view name, std::size_t most) {
  std::vector<std::string> values;
  for (const auto& [key, value] : target.query)
    if (key == name) values.push_back(value);
  if (values.size() > most) refuse(fmt::format("{} must not occur more than {} times", name, most));
  return values;
}

template <class Number>
std::optional<Number> numberOf(const Target& target, std::string_view name) {
  const auto text = target.queryValue(name);
  if (!text) return std::nullopt;
  Number number{};
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  if (error != std::errc() || end != text->data() + text->size())
    refuse(fmt::format("{} must be a number", name));
  return number;
}

bool flagOf(const Target& target, std::string_view name) {
  const auto value = target.queryValue(name);
  if (!value || *value == "0" || *value == "false") return false;
  if (*value == "1" || *value == "true" || value->empty()) return true;
  refuse(fmt::format("{} must be 0 or 1", name));
}

}  // namespace

PlanQuery routeQueryOf(const Target& target) {
  if (std::any_of(target.query.begin(), target.query.end(),
                  [](const auto& item) { return item.second.size() > longestValue; }))
    refuse("a value in the query is too long");
  PlanQuery query;
  query.from = valuesOf(target, "from", mostEnds);
  query.to = valuesOf(target, "to", mostEnds);
  query.via = valuesOf(target, "via", mostRouteStops - 2);
  query.closed = valuesOf(target, "closed", mostClosed);
  query.nearest = target.queryValue("nearest");
  query.bestOrder = flagOf(target, "best-order");
  query.avoidOutdoors = flagOf(target, "avoid-outdoors");
  query.at = target.queryValue("at");
  query.profile = target.queryValue("profile").value_or(query.profile);
  query.walkingSpeed = numberOf<double>(target, "speed");
  query.alternatives = numberOf<int>(target, "alternatives").value_or(0);
  return query;
}

}  // namespace orivanta::server

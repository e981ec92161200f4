#include "Apps/Web/QueryReading.hpp"

#include <boost/json/array.hpp>
#include <boost/json/value_to.hpp>

#include "Platform/Foundation/ExactJson.hpp"

namespace orivanta::web {

namespace json = boost::json;
using planning::QueryError;

namespace {

// Reads a member if it is there. Throws if it has another type.
template <class Value>
void read(const json::object& object, const char* name, Value& value) {
  if (const json::value* member = object.if_contains(name); member != nullptr && !member->is_null())
    value = json::value_to<Value>(*member);
}

template <class Value>
void read(const json::object& object, const char* name, std::optional<Value>& value) {
  if (const json::value* member = object.if_contains(name); member != nullptr && !member->is_null())
    value = json::value_to<Value>(*member);
}

}  // namespace

json::object objectIn(std::string_view text) {
  constexpr std::size_t deepest = 32;
  auto parsed = foundation::parseExactJson(text, deepest, {}, {});
  if (parsed.error || parsed.read != text.size() || !parsed.value.is_object())
    throw QueryError(QueryError::Kind::invalid, "the text is not a JSON object");
  return std::move(parsed.value.get_object());
}

Query queryOf(std::string_view text) {
  try {
    const json::object object = objectIn(text);
    Query query;
    read(object, "from", query.plan.from);
    read(object, "to", query.plan.to);
    read(object, "via", query.plan.via);
    read(object, "nearest", query.plan.nearest);
    read(object, "bestOrder", query.plan.bestOrder);
    read(object, "profile", query.plan.profile);
    read(object, "avoidOutdoors", query.plan.avoidOutdoors);
    read(object, "speed", query.plan.walkingSpeed);
    read(object, "at", query.plan.at);
    read(object, "closed", query.plan.closed);
    read(object, "alternatives", query.plan.alternatives);
    read(object, "language", query.language);
    read(object, "visitsClosedStops", query.visitsClosedStops);
    return query;
  } catch (const QueryError&) {
    throw;
  } catch (const std::exception& error) {
    throw QueryError(QueryError::Kind::invalid, error.what());
  }
}

json::object errorJson(const QueryError& error) {
  const char* kind = "invalid";
  if (error.kind == QueryError::Kind::notFound) kind = "notFound";
  if (error.kind == QueryError::Kind::ambiguous) kind = "ambiguous";
  return {{"kind", kind}, {"text", error.what()}};
}

}  // namespace orivanta::web

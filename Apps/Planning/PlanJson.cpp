#include "Apps/Planning/PlanJson.hpp"

#include <boost/json/array.hpp>
#include <cmath>

#include "Apps/Planning/PlanQuery.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/KindWords.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::planning {

namespace json = boost::json;
using guidance::Itinerary;
using guidance::Leg;
using guidance::Side;
using guidance::Step;
using guidance::wordOf;

namespace {

// A node at a position between two others has an empty identifier.
template <class Record>
json::value idOf(const std::shared_ptr<Record>& record) {
  return record && record->id && !record->id->empty() ? json::value(*record->id)
                                                      : json::value(nullptr);
}

json::value known(bool hasScale, double value) {
  if (!hasScale || !std::isfinite(value)) return nullptr;
  return std::round(value * 100.0) / 100.0;
}

json::value sideJson(Side side) {
  return side == Side::none ? json::value(nullptr) : json::value(wordOf(side));
}

json::value positionJson(const guidance::Landmark& landmark) {
  using Position = Direction::Turn::ReferencePosition;
  switch (landmark.position) {
    case Position::Past:
      return "after";
    case Position::Before:
      return "before";
    case Position::At:
      break;
  }
  return "at";
}

json::array identifiers(const NodeList& nodes) {
  json::array array;
  array.reserve(nodes.size());
  for (const auto& node : nodes) array.push_back(idOf(node));
  return array;
}

json::object legJson(const Itinerary& itinerary, const Leg& leg) {
  const bool ride = leg.kind == Leg::Kind::ride;
  json::object object = {{"kind", ride ? "ride" : "walk"},
                         {"nodes", identifiers(leg.nodes)},
                         {"meters", known(itinerary.hasScale, leg.meters)},
                         {"seconds", known(itinerary.hasScale, leg.seconds)},
                         {"map", idOf(leg.map)},
                         {"connector", idOf(leg.connector)}};
  if (ride) {
    object["connectorKind"] = wordOf(leg.connectorKind);
    object["floors"] = leg.floorsPassed;
  }
  return object;
}

json::object stepJson(const Itinerary& itinerary, const Step& step, const std::string& text) {
  json::array passed;
  for (const auto& place : step.passed)
    passed.push_back(json::object{{"location", idOf(place.place)},
                                  {"category", idOf(place.category)},
                                  {"side", sideJson(place.side)}});
  json::array rooms;
  for (const auto& room : step.through) rooms.push_back(idOf(room));
  json::object object = {
      {"kind", wordOf(step.kind)},
      {"leg", step.leg},
      {"nodes", json::array{step.first, step.last}},
      {"turnDegrees", std::round(step.turnDegrees * 10.0) / 10.0 + 0.0},
      {"secondTurnDegrees", nullptr},
      {"side", sideJson(step.side)},
      {"landmark", step.landmark ? idOf(step.landmark->place) : json::value(nullptr)},
      {"landmarkCategory", step.landmark ? idOf(step.landmark->category) : json::value(nullptr)},
      {"landmarkPosition", step.landmark ? positionJson(*step.landmark) : json::value(nullptr)},
      {"place", idOf(step.place)},
      {"opposite", idOf(step.opposite)},
      {"passed", std::move(passed)},
      {"through", std::move(rooms)},
      {"meters", known(itinerary.hasScale, step.metersToNext)},
      {"seconds", known(itinerary.hasScale, step.secondsToNext)},
      {"text", text}};
  if (step.secondTurnDegrees)
    object["secondTurnDegrees"] = std::round(*step.secondTurnDegrees * 10.0) / 10.0 + 0.0;
  return object;
}

}  // namespace

json::object itineraryJson(const guidance::Guide& guide, const Itinerary& itinerary,
                           const guidance::Narrator& narrator,
                           const foundation::CancellationToken& token) {
  const std::vector<Step> steps = guide.steps(itinerary, token);
  const std::vector<std::string> texts = narrator.texts(itinerary, steps);
  json::array visits;
  for (const auto& visit : itinerary.visits)
    visits.push_back(
        json::object{{"stop", visit.stop}, {"leg", visit.leg}, {"location", idOf(visit.location)}});
  json::array legs;
  for (const Leg& leg : itinerary.legs) legs.push_back(legJson(itinerary, leg));
  json::array stepList;
  for (std::size_t i = 0; i < steps.size(); ++i)
    stepList.push_back(stepJson(itinerary, steps[i], texts[i]));
  return {{"meters", known(itinerary.hasScale, itinerary.meters())},
          {"seconds", known(itinerary.hasScale, itinerary.seconds())},
          {"costMilliseconds", itinerary.costMilliseconds},
          {"summary", narrator.summary(itinerary)},
          {"path", identifiers(itinerary.path())},
          {"visits", std::move(visits)},
          {"legs", std::move(legs)},
          {"steps", std::move(stepList)}};
}

json::object planJson(const guidance::Guide& guide, const guidance::Plan& plan,
                      const guidance::Request& request, const guidance::Narrator& narrator,
                      const foundation::CancellationToken& token) {
  if (plan.problem) {
    const std::size_t stop = plan.problem->stop;
    const std::string place =
        stop < request.stops.size() ? guide.spokenName(request.stops[stop]) : std::string();
    return {{"language", narrator.language()},
            {"problem", json::object{{"kind", wordOf(plan.problem->kind)},
                                     {"stop", stop},
                                     {"text", narrator.text(*plan.problem, place)}}}};
  }
  json::object object = itineraryJson(guide, plan.itineraries.front(), narrator, token);
  object["language"] = narrator.language();
  if (plan.itineraries.size() > 1) {
    json::array alternatives;
    for (std::size_t i = 1; i < plan.itineraries.size(); ++i)
      alternatives.push_back(itineraryJson(guide, plan.itineraries[i], narrator, token));
    object["alternatives"] = std::move(alternatives);
  }
  return object;
}

}  // namespace orivanta::planning

// Compares the instructions for routes through real buildings with turns that people labeled. The
// labels lie next to the venues and may be missing.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>

#include "Source/Guidance/Steps/StepBuilder.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/GuidedPaths.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

using namespace guidance;

struct Building {
  std::shared_ptr<Venue> venue;
  std::unique_ptr<GuideData> data;
  std::unique_ptr<Surroundings> surroundings;
  std::map<std::string, std::shared_ptr<Node>> nodes;
  std::map<std::string, std::shared_ptr<Location>> places;

  explicit Building(const std::string& name) : venue(test::guidedVenue(name)) {
    if (!venue) return;
    data = std::make_unique<GuideData>(*venue);
    surroundings = std::make_unique<Surroundings>(*venue, *data);
    for (const auto& node : *venue->nodes) nodes[*node->id] = node;
    for (const auto& place : *venue->locations) places[*place->id] = place;
  }
};

// A range of a leg's nodes and the side to which it turns.
struct Marked {
  double begin;  ///< in meters from the start of the leg
  double end;
  bool left;

  bool meets(const Marked& other) const {
    return begin <= other.end + 5.0 && other.begin <= end + 5.0;
  }
};

struct Figures {
  int required = 0, missed = 0, said = 0, superfluous = 0, wrongSides = 0;
};

std::vector<double> positions(const Leg& leg, double metersPerUnit) {
  std::vector<double> along{0.0};
  for (std::size_t i = 1; i < leg.nodes.size(); ++i)
    along.push_back(along.back() +
                    metersPerUnit * std::hypot(leg.nodes[i]->x - leg.nodes[i - 1]->x,
                                               leg.nodes[i]->y - leg.nodes[i - 1]->y));
  return along;
}

bool isOnSide(const Step& step) { return step.side == Side::left || step.side == Side::right; }

// What is told in a leg: `turns` must meet a label; `sides` may.
void findSaid(const std::vector<Step>& steps, std::size_t leg, const std::vector<double>& along,
              std::vector<Marked>& turns, std::vector<Marked>& sides) {
  for (const Step& step : steps) {
    const bool isRide = step.kind == Step::Kind::ride;
    if (isRide && step.leg == leg + 1 && isOnSide(step))
      sides.push_back({along.back() - 8.0, along.back(), step.side == Side::left});
    if (isRide || step.leg != leg) continue;
    const double begin = along[step.first];
    const double end = along[step.last];
    if (step.kind == Step::Kind::arrive && isOnSide(step))
      sides.push_back({begin, end, step.side == Side::left});
    if (std::abs(step.turnDegrees) < 45.0) continue;
    turns.push_back({begin, end, step.turnDegrees > 0.0});
    if (step.secondTurnDegrees) turns.push_back({begin, end, *step.secondTurnDegrees > 0.0});
  }
}

std::vector<Marked> labels(const RawData& list, const std::vector<double>& along) {
  std::vector<Marked> result;
  for (const RawData& label : list.arrayValue()) {
    const auto parts = label.arrayValue();
    const auto at = [&](int part) {
      return along.at(static_cast<std::size_t>(parts.at(part).doubleForce()));
    };
    result.push_back({at(0), at(1), parts.at(2).stringForce() == "L"});
  }
  return result;
}

bool isMet(const Marked& mark, const std::vector<Marked>& others, bool sameSide) {
  for (const Marked& other : others)
    if (mark.meets(other) && (mark.left == other.left) == sameSide) return true;
  return false;
}

void compare(const std::vector<Marked>& required, const std::vector<Marked>& allowed,
             const std::vector<Marked>& turns, const std::vector<Marked>& sides, Figures& figures) {
  std::vector<Marked> labeled = required;
  labeled.insert(labeled.end(), allowed.begin(), allowed.end());
  std::vector<Marked> told = turns;
  told.insert(told.end(), sides.begin(), sides.end());
  for (const Marked& label : required) {
    ++figures.required;
    if (!isMet(label, told, true)) ++figures.missed;
  }
  for (const Marked& turn : turns) {
    ++figures.said;
    if (isMet(turn, labeled, true)) continue;
    ++(isMet(turn, labeled, false) ? figures.wrongSides : figures.superfluous);
  }
}

void compareRoute(const RawData& route, const Building& building, Figures& figures) {
  NodeList path;
  for (const RawData& id : route["path"].arrayValue())
    path.push_back(building.nodes.at(id.stringForce()));
  const double units = building.venue->_data["unitsPerMetre"].doubleForce();
  const Itinerary itinerary = test::itineraryOf(path, *building.venue->navigationGraph, units,
                                                building.places.at(route["from"].stringForce()),
                                                building.places.at(route["to"].stringForce()));
  const auto steps = stepsOf(itinerary, *building.surroundings);
  int walk = 0;
  for (std::size_t leg = 0; leg < itinerary.legs.size(); ++leg) {
    if (itinerary.legs[leg].kind != Leg::Kind::walk) continue;
    const RawData label = route["legs"][std::to_string(walk++)];
    if (!label.data()) continue;
    const auto along = positions(itinerary.legs[leg], 1.0 / units);
    std::vector<Marked> turns;
    std::vector<Marked> sides;
    findSaid(steps, leg, along, turns, sides);
    compare(labels(label["required"], along), labels(label["allowed"], along), turns, sides,
            figures);
  }
}

TEST(LabeledTurns, AreToldOnTheRightSide) {
  const auto folder = test::venuesFolder();
  const auto document = RawData::parse(
      folder ? test::contentsOf(*folder / ".." / "guidance" / "labelled-turns.json") : "");
  if (!document) GTEST_SKIP() << "no labels";
  Figures figures;
  std::map<std::string, Building> buildings;
  for (const RawData& route : document->arrayValue()) {
    const std::string name = route["venue"].stringForce();
    const Building& building = buildings.try_emplace(name, name).first->second;
    ASSERT_TRUE(building.venue) << name;
    compareRoute(route, building, figures);
  }
  std::cout << figures.required - figures.missed << " of " << figures.required
            << " required turns told, " << figures.superfluous << " of " << figures.said
            << " superfluous, " << figures.wrongSides << " on the wrong side\n";
  EXPECT_GE(figures.required, 60);
  EXPECT_EQ(figures.wrongSides, 0);
  EXPECT_GE(figures.required - figures.missed, 0.99 * figures.required);
  EXPECT_LE(figures.superfluous, 0.03 * figures.said);
}

}  // namespace
}  // namespace orivanta

// The rules of instructions, on drawn walks.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <sstream>

#include "Source/Category.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Steps/StepBuilder.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/GuidedPaths.hpp"

namespace orivanta {
namespace {

using namespace guidance;

template <class Record>
std::shared_ptr<Record> record(const std::string& members) {
  return Record::make(*RawData::parse("{" + members + "}"));
}

// A venue with one path. `path` lists points such as "10,0"; "Cafe@10,0" is also an entrance of the
// Cafe, "Cafe+10,0" is inside it, and "stairs:10,0" is reached on a connector of this type. `doors`
// lists further entrances: "Cafe@10,3~1" is connected with point 1. In "?Shop 1/Shops", the name is
// generated and Shops is the category; it is a general one if it ends with "*". The path leads from
// the place "From" to the place "To".
class Scene {
 public:
  explicit Scene(const std::string& path, const std::string& doors = "") {
    std::istringstream pathTokens(path);
    for (std::string token; pathTokens >> token;) addPoint(token);
    std::istringstream doorTokens(doors);
    for (std::string token; doorTokens >> token;) {
      const std::size_t link = token.find('~');
      const std::size_t at = std::stoul(token.substr(link + 1));
      addNode(token.substr(0, link), fmt::format(R"({{"node": "n{}"}})", at));
    }
    venue->nodes = NodeList();
    for (const auto& [id, node] : nodes_) venue->nodes->push_back(node);
    venue->locations.emplace();
    for (const auto& [name, place] : places_) venue->locations->push_back(place);
    venue->polygons = polygons_;
    // Doors are reached from the path.
    venue->navigationGraph = std::make_shared<NavigationGraph>(nodes_, connectors_, false);
    NavigationGraph::Adjacency edges = venue->navigationGraph->graph();
    for (const auto& [id, node] : nodes_)
      for (const Edge& edge : (*venue->navigationGraph)[*node])
        if (!edge.vortex()) edges[edge.node()].emplace_back(*edge.node(), node);
    venue->navigationGraph->setGraph(std::move(edges));
  }

  Itinerary itinerary(std::optional<double> units = 1.0) const {
    return test::itineraryOf(path_, *venue->navigationGraph, units, place("From"), place("To"));
  }

  std::vector<Step> steps(const Itinerary& itinerary) const {
    const GuideData data(*venue);
    return stepsOf(itinerary, Surroundings(*venue, data));
  }

  std::shared_ptr<Location> place(const std::string& name) const {
    const auto found = places_.find(name);
    return found == places_.end() ? nullptr : found->second;
  }

  std::shared_ptr<Venue> venue =
      record<Venue>(R"("id": "v", "slug": "v", "name": "V", "unitsPerMetre": 1)");

 private:
  void addPoint(const std::string& token) {
    const std::size_t colon = token.find(':');
    const std::string before = fmt::format(R"({{"node": "n{}"}})", path_.size() - 1);
    const bool isRide = colon != std::string::npos;
    const auto node =
        addNode(isRide ? token.substr(colon + 1) : token, isRide || path_.empty() ? "" : before);
    if (isRide) {
      const auto connector = record<Vortex>(fmt::format(R"("id": "v{}", "name": "?", "type": "{}")",
                                                        path_.size(), token.substr(0, colon)));
      connector->nodes = {path_.back(), node};
      connectors_.insert_or_assign(*connector->id, connector);
    }
    path_.push_back(node);
  }

  std::shared_ptr<Node> addNode(const std::string& token, const std::string& paths) {
    const std::size_t at = token.find_first_of("@+");
    const std::string point = at == std::string::npos ? token : token.substr(at + 1);
    const std::string id = fmt::format("n{}", nodes_.size());
    const std::size_t comma = point.find(',');
    auto node = record<Node>(fmt::format(R"("id": "{}", "x": {}, "y": {}, "paths": [{}])", id,
                                         point.substr(0, comma), point.substr(comma + 1), paths));
    node->map = map_;
    nodes_.insert_or_assign(id, node);
    if (at == std::string::npos) return node;
    const auto& place = placeNamed(token.substr(0, at));
    (token[at] == '@' ? place->polygons.front()->entrances : place->nodes).push_back(node);
    return node;
  }

  const std::shared_ptr<Location>& placeNamed(const std::string& name) {
    auto& place = places_[name];
    if (!place) {
      const std::size_t slash = name.find('/');
      place = record<Location>(
          fmt::format(R"("id": "{}", "name": "{}", "type": "shop", "nameGenerated": {})", name,
                      name.substr(0, slash), name.front() == '?'));
      const std::string category = slash == std::string::npos ? "" : name.substr(slash + 1);
      auto& kind = categories_[category];
      if (!kind)
        kind = record<Category>(fmt::format(R"("id": "{0}", "name": "{0}", "general": {1})",
                                            category, category.ends_with("*")));
      if (!category.empty()) place->categories = {kind};
      place->polygons = {record<Polygon>(R"("id": "p")")};
      polygons_.push_back(place->polygons.front());
    }
    return place;
  }

  std::shared_ptr<Map> map_ = record<Map>(R"("id": "m")");
  NodeList path_;
  Collection<Node> nodes_;
  Collection<Vortex> connectors_;
  std::map<std::string, std::shared_ptr<Location>> places_;
  std::vector<std::shared_ptr<Polygon>> polygons_;
  std::map<std::string, std::shared_ptr<Category>> categories_;
};

std::string nameOf(const std::shared_ptr<Location>& place, const std::shared_ptr<Category>& kind) {
  return kind ? "the " + *kind->name : *place->name;
}

std::string textOf(const Step& step) {
  static const char* const kinds[] = {"depart", "turn", "ride", "leave", "arrive"};
  static const char* const sharpnesses[] = {"bear ", "", "sharp ", "around "};
  static const char* const sides[] = {"", " left", " right", " ahead", " behind"};
  static const char* const positions[] = {" at ", " after ", " before "};
  const auto angle = [](double degrees) {
    return fmt::format("{}{:.0f}", degrees > 0.0 ? 'L' : 'R', std::abs(degrees));
  };
  std::string text = kinds[static_cast<int>(step.kind)];
  text += sides[static_cast<int>(step.side)];
  if (step.turnDegrees != 0.0)
    text += " " + (sharpnesses[static_cast<int>(step.sharpness)] + angle(step.turnDegrees));
  if (step.secondTurnDegrees) text += " then " + angle(*step.secondTurnDegrees);
  if (step.landmark)
    text += positions[static_cast<int>(step.landmark->position)] +
            nameOf(step.landmark->place, step.landmark->category);
  if (step.opposite) text += " opposite " + *step.opposite->name;
  for (const Passed& passed : step.passed)
    text +=
        " passing " + nameOf(passed.place, passed.category) + sides[static_cast<int>(passed.side)];
  for (const auto& room : step.through) text += " through " + *room->name;
  return text;
}

// The instructions as one text. Checks what holds for all lists.
std::string textOf(const Scene& scene) {
  const Itinerary itinerary = scene.itinerary();
  std::string text;
  double meters = 0.0;
  double seconds = 0.0;
  for (const Step& step : scene.steps(itinerary)) {
    text += (text.empty() ? "" : ", ") + textOf(step);
    meters += step.metersToNext;
    seconds += step.secondsToNext;
    EXPECT_LT(step.last, itinerary.legs[step.leg].nodes.size());
    EXPECT_TRUE(step.kind != Step::Kind::turn || step.metersToNext >= 3.0);
  }
  EXPECT_NEAR(meters, itinerary.meters(), 1e-9);
  EXPECT_NEAR(seconds, itinerary.seconds(), 1e-9);
  return text;
}

TEST(StepBuilder, TellsTheTurnsOfDrawnWalks) {
  const struct {
    const char* path;
    const char* steps;
    const char* doors = "";
  } cases[] = {
      // Turns: from 45 degrees on; not at doors and bulges; several bends are one.
      {"0,0 30,0 30,40", "depart, turn L90, arrive"},
      {"0,0 30,0 60,25", "depart, arrive"},
      {"0,0 30,0 45,20", "depart, turn bear L53, arrive"},
      {"0,0 20,0 22,0.9 24,0 50,0", "depart, arrive"},
      {"0,0 20,0 21,2 23,2 24,0 50,0", "depart, arrive"},
      {"0,0 30,0 32,2 32,40", "depart, turn L90, arrive"},
      {"0,0 30,0 36,6 36,40", "depart, turn L90, arrive"},
      {"0,0 30,0 34,6 44,6", "depart, arrive"},  // does not persist
      {"0,0 30,0 20,22", "depart, turn L114, arrive"},
      {"0,0 30,0 15,15", "depart, turn sharp L135, arrive"},
      {"0,0 30,0 30,2 0,2", "depart, turn around L180, arrive"},
      {"0,0 30,0 30,12 0,12", "depart, turn L90, turn L90, arrive"},
      {"0,0 30,0 30,8 60,8", "depart, turn L90 then R90, arrive"},
      // The ends of walks and rides.
      {"0,0 From@0,4 0,6 30,6", "depart R90, arrive"},
      {"0,0 From@0,4 0,16 30,16", "depart, turn R90, arrive"},
      {"0,0 From@-4,4 30,4", "depart R135, arrive"},
      {"0,0 20,0 From@20,20 20,60", "depart, arrive"},
      {"0,0 30,0 To@30,2 30,5", "depart, arrive left"},
      {"0,0 30,0 To@30,-6 30.9,-6.5", "depart, turn R82, arrive left"},
      {"0,0 30,0 To@40,0 45,0", "depart, arrive ahead"},
      {"0,0 30,0 30,6 To@27,6 25,6", "depart, turn L90, arrive left"},
      {"0,0 30,0 30,5 lift:30,5 30,20", "depart, ride left, leave, arrive"},
      {"0,0 30,0 lift:30,0 30,5 60,5", "depart, ride, leave R90, arrive"},
      {"0,0 30,0 30,4 33,4 33,5 lift:33,5 33,30", "depart, ride, leave, arrive"},
      {"0,0 30,0 stairs:40,0 44,0 stairs:54,0 70,0", "depart, ride, leave, arrive"},
      {"0,0 30,0 lift:30,0 34,0 lift:34,0 70,0", "depart, ride, leave, ride, leave, arrive"},
      {"0,0 30,0 lift:30,0 32,0 stairs:42,0 70,0", "depart, ride, ride, leave, arrive"},
      {"0,0 30,0 stairs:40,0 40,20", "depart, ride, leave left, arrive"},
      {"0,0 30,0 stairs:40,0 40,2 lift:40,2 40,9", "depart, ride, leave left, ride, leave, arrive"},
      {"0,0 30,0 stairs:40,0 40,0.2", "depart, ride, arrive"},
      {"0,0 30,0 stairs:32,0 32,20", "depart, ride, leave, arrive"},  // has no direction
      {"0,0 lift:0,0", "depart, ride, arrive"},
      // Detours of the network: to a node and back.
      {"0,0 From@0,4 8,4.5 -30,5 -30,40", "depart L88, turn R88, arrive"},
      {"0,40 0,0 38,0 To@30,1 30,4", "depart, turn L92, arrive left"},
      {"0,40 0,0 38,0 To@30,0.5 22,1", "depart, turn L90, turn around L176, arrive ahead"},
      {"0,0 30,0 30,20 29,10 0,10", "depart, turn L90, turn around L174, turn R84, arrive"},
      // Landmarks: each once, by name, or as the only one of its kind.
      {"0,0 30,0 30,40", "depart, turn L90 after Cafe, arrive", "Cafe@26,3~1"},
      {"0,0 30,0 30,40", "depart, turn L90 at Cafe, arrive", "Cafe@35,1~1"},
      {"0,0 30,0 30,40", "depart, turn L90 before Cafe, arrive", "Cafe@35,4~1"},
      {"0,0 30,0 30,40", "depart, turn L90, arrive", "Cafe@42,0~1"},
      {"0,0 30,0 30,40", "depart, turn L90, arrive", "?1@26,3~1"},
      {"0,0 30,0 30,40", "depart, turn L90 after the Shops, arrive", "?1/Shops@26,3~1"},
      {"0,0 30,0 30,40", "depart, turn L90, arrive", "?1/Shops@26,3~1 ?2/Shops@35,1~1"},
      {"0,0 30,0 30,40", "depart, turn L90, arrive", "?1/Shops*@26,3~1"},
      {"0,0 20,0 40,0", "depart passing Cafe right, arrive", "Cafe@20,-4~1"},
      {"0,0 20,0 40,0", "depart, arrive", "Cafe@20,-7~1"},
      {"0,0 20,0 80,0 90,0", "depart passing A right passing B left, arrive", "A@20,-4~1 B@80,4~2"},
      {"0,0 20,0 40,0", "depart, arrive", "From@20,3~1"},
      {"0,0 30,0 To@30,2 30,5", "depart, arrive left opposite Cafe", "Cafe@30,-2~1"},
      // Rooms on the way: in at a door, out at another, with a name on signs.
      {"0,0 20,0 A@20,10 A+20,14 A@20,18 20,40", "depart, turn L90 through A, arrive"},
      {"0,0 A@9,0 A+20,0 A+20,30 A@20,40 20,60", "depart through A, turn L90, arrive"},
      {"0,0 A@9,0 A+12,0 A@20,0 B@20,0 B+25,0 B@30,0 60,0", "depart through A through B, arrive"},
      {"0,0 A@9,0 A+12,0 A@20,0 A+25,0 A@30,0 60,0", "depart through A, arrive"},
      {"0,0 A@9,0 A+12,0 A@20,0 30,0 A@40,0 A+45,0 A@50,0 60,0",
       "depart through A through A, arrive"},
      {"0,0 A@9,0 A+12,0 B@20,0 A+25,0 C@30,0 A+35,0 A@40,0 60,0", "depart through A, arrive"},
      {"0,0 A@9,0 A+12,0 B@20,0 25,0 C@30,0 A+35,0 A@40,0 60,0",
       "depart through A through A, arrive"},
      {"0,0 stairs:9,0 A@10,0 A+10.5,0 A@11,0", "depart, ride, leave through A, arrive"},
      {"0,0 A@9,0 12,0 A+15,0 20,0 A@30,0", "depart through A, arrive"},
      {"0,0 A@9,0 A+12,0 B@20,0 B+25,0 B@30,0 60,0", "depart through A through B, arrive"},
      {"0,0 A@9,0 A+12,0 20,0 To@30,0 To+31,0", "depart, arrive ahead"},  // A is open
      {"0,0 A@9,0 A@20,0 60,0", "depart, arrive"},                        // along its doors
      {"0,0 B@9,0 A+12,0 C@20,0 60,0", "depart, arrive", "A@12,9~2"},     // no door of its own
      {"0,0 From@9,0 From+12,0 From@20,0 60,0", "depart, arrive"},
      {"0,0 To@9,0 To+12,0 To@20,0 To+25,0", "depart, arrive ahead"},
      {"0,0 ?1@9,0 ?1+12,0 ?1@20,0 60,0", "depart, arrive"}};
  for (const auto& test : cases)
    EXPECT_EQ(textOf(Scene(test.path, test.doors)), test.steps) << test.path << " " << test.doors;
}

TEST(StepBuilder, TellsEachStop) {
  const Scene scene("0,0 20,0 40,0");
  Itinerary itinerary = scene.itinerary();
  Leg second = itinerary.legs.front();
  second.nodes.erase(second.nodes.begin());
  itinerary.legs.front().nodes.pop_back();
  itinerary.legs.push_back(second);
  itinerary.visits = {{0, 0, nullptr}, {1, 1, nullptr}, {2, 2, nullptr}};
  std::string text;
  for (const Step& step : scene.steps(itinerary)) text += textOf(step) + ";";
  EXPECT_EQ(text, "depart;arrive;depart;arrive;");
  itinerary.visits.clear();  // the legs are then one walk
  EXPECT_EQ(scene.steps(itinerary).size(), 2U);
}

TEST(StepBuilder, SurvivesHostileItineraries) {
  const Scene scene("0,0 1,0");
  EXPECT_TRUE(scene.steps({}).empty());
  Itinerary itinerary;
  itinerary.legs.emplace_back();
  EXPECT_TRUE(scene.steps(itinerary).empty());  // a leg without nodes
  auto node = record<Node>(R"("id": "n", "x": 0, "y": 0)");
  itinerary.legs.front().nodes = {node};
  EXPECT_EQ(scene.steps(itinerary).size(), 2U);
  std::vector<Step> ride(1);
  ride.front().kind = Step::Kind::ride;
  ride.front().lastLeg = 1;
  for (const NodeList& nodes : {NodeList(), NodeList{nullptr}, NodeList{node, nullptr}}) {
    Itinerary faulty = itinerary;
    faulty.legs.emplace_back().nodes = nodes;
    EXPECT_TRUE(scene.steps(faulty).empty());
    EXPECT_EQ(asDirections(faulty, ride, {}), nullptr);
  }
  NodeList& nodes = itinerary.legs.front().nodes;
  const double values[] = {0.0, 1e308, -1e308, std::numeric_limits<double>::infinity(),
                           std::nan("")};
  for (int i = 0; i < 100'000; ++i) {  // a comb, with coincident nodes and positions out of range
    nodes.push_back(record<Node>(R"("id": "n", "x": 0, "y": 0)"));
    nodes.back()->x = i % 1000 == 0 ? values[i / 1000 % 5] : i / 2 * 9.0;
    nodes.back()->y = i % 4 < 2 ? 0.0 : 40.0;
  }
  const auto steps = scene.steps(itinerary);
  EXPECT_GT(steps.size(), 40'000U);
  for (const Step& step : steps) ASSERT_TRUE(std::isfinite(step.turnDegrees));
}

TEST(Step, BecomesADirection) {
  const Scene scene("0,0 30,0 45,20 lift:45,20 45,60 10,60 stairs:0,60 0,90 stairs:0,100 -9,100");
  const Itinerary itinerary = scene.itinerary();
  const auto steps = scene.steps(itinerary);
  const auto directions = asDirections(itinerary, steps, {"Go"});
  ASSERT_EQ(directions->directions.size(), steps.size());
  EXPECT_EQ(directions->path, itinerary.path());
  EXPECT_EQ(directions->directions.front().instruction, "Go");
  EXPECT_EQ(directions->directions.back().instruction, "");
  std::string bearings;
  for (const Direction& direction : directions->directions)
    if (const auto* turn = dynamic_cast<const Direction::Turn*>(direction.action.get()))
      bearings += std::to_string(static_cast<int>(turn->relativeBearing));
  // Slight left, straight from the lift, left, right from the stairs, left from the stairs.
  EXPECT_EQ(bearings, "12040");
  EXPECT_EQ(asDirections({}, {}, {}), nullptr);
}

}  // namespace
}  // namespace orivanta

// Runs the commands for visitors against the venue server.
#include <gmock/gmock.h>

#include "Apps/Server/VenueServer.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Apps/TwoVisitsPackage.hpp"
#include "Tests/Support/CountedPixels.hpp"
#include "Tests/Support/TwoFloorPackage.hpp"

namespace orivanta::command {
namespace {

using test::ProgramResult;
using testing::HasSubstr;
using testing::StartsWith;

class GuideCommand : public testing::Test {
 protected:
  GuideCommand() {
    test::TwoFloorVenue venue;
    venue.nodes.back() = ',';
    venue.nodes += R"({"id": "u3", "map": "f1", "x": 43, "y": 0, "paths": [{"node": "u1"}]}])";
    venue.nodes.replace(venue.nodes.find(R"([{"node": "u2"}])"), 16,
                        R"([{"node": "u2"}, {"node": "u3"}])");
    venue.locations.back() = ',';
    venue.locations +=
        R"({"id": "l3", "name": "Tea Room", "type": "shop", "nodes": [{"node": "u3"}],
        "categories": ["c1"], "hours": "09:00-18:00"}, {"id": "l4", "name": "Tea Stall", "type": "shop"},
        {"id": "l5", "name": "Kiosk", "type": "shop", "nodes": [{"node": "n4"}]}])";
    test::writePackage(folder_, "package", venue);
    server::ServerOptions options;
    options.folders = {folder_.path()};
    server_ = std::make_unique<server::VenueServer>(options);
  }

  ProgramResult run(std::vector<std::string> arguments, std::string_view input = "") const {
    return test::runProgram(arguments, {"ORIVANTA_ENDPOINT=" + server_->root(), "LANGUAGE=en"},
                            input);
  }

  test::TemporaryFolder folder_;
  std::unique_ptr<server::VenueServer> server_;
};

TEST_F(GuideCommand, AnswersQueries) {
  struct Case {
    std::vector<std::string> options;
    int exitCode;
    std::vector<std::string> output;  // parts
    std::string said = {};            // a part of standard error; "" if it must be empty
  };
  const std::string lift = R"("connector":"lift","connectorKind":"lift","floors":1)";
  const Case cases[] = {
      {{"--to", "l2", "--guide"}, 0, {"  1. ", "Bakery", "stairs", "Book Shop"}},
      {{"--to", "l2", "--profile", "step-free"}, 0, {"elevator"}},
      {{"--to", "l2", "--guide", "--accessible"}, 0, {"elevator"}},
      {{"--to", "l2", "--language", "de"}, 0, {"Treppe"}},
      {{"--to", "l2", "--closed", "stairs", "--json"},
       0,
       {lift, R"("path":["n1","n2","n3","u1","u2"])", R"("language":"en")",
        R"("meters":1.5,"seconds":1.25)", R"("landmark":null,"landmarkCategory":null,)"}},
      {{"--to", "@F1,5,9", "--guide", "--json"}, 0, {R"(null],"visits")"}},
      {{"--to", "l2", "--closed", "stairs", "--closed", "lift"}, 1, {}, "Book Shop"},
      {{"--to", "l2", "--closed", "l2", "--json"},
       1,
       {R"({"language":"en","problem":{"kind":"closed","stop":1,"text":")"},
       "closed"},
      {{"--to", "l3", "--at", "2026-11-21T17:59"}, 0, {"Tea Room"}},
      {{"--to", "l3", "--at", "2026-11-21T18:00"}, 1, {}, "Tea Room"},
      {{"--to", "l5", "--guide"}, 1, {}, "Kiosk"},
      {{"--nearest", "c1"}, 0, {"You have arrived at Bakery."}},
      {{"--nearest", "SHOPS", "--closed", "l2", "--closed", "l1"}, 0, {"Tea Room"}},
      {{"--to", "n3", "--via", "u2", "--via", "n2", "--json"}, 0, {R"({"stop":1,"leg":2,)"}},
      {{"--to", "n1", "--via", "u3", "--via", "n2", "--best-order", "--json"},
       0,
       {R"("visits":[{"stop":0,"leg":0,"location":"l1"},{"stop":2,)"}},
      {{"--to", "l2", "--alternatives", "2"}, 0, {"\nAlternative 1:\n  1. "}},
      {{"--to", "tea", "--guide"}, 2, {}, "names 2 places"},
      {{"--to", "zoo", "--guide"}, 1, {}, "no location or node \"zoo\""},
      {{"--to", "@F9,1,2", "--guide"}, 1, {}, "no floor \"F9\""},
      {{"--nearest", "zoo"}, 1, {}, "no category \"zoo\"; it has c1, c2"},
      {{"--to", "@F1,1", "--guide"}, 2, {}, "not a position"},
      {{"--to", "@F1,1,nan", "--guide"}, 2, {}, "not a position"},
      {{"--to", "l2", "--profile", "flying"}, 2, {}, "--profile"},
      {{"--to", "l2", "--nearest", "c1"}, 2, {}, "either --to or --nearest"},
      {{"--guide"}, 2, {}, "--to"},
  };
  for (const Case& each : cases) {
    std::vector<std::string> arguments = {"route", "small", "--from", "bakery"};
    arguments.insert(arguments.end(), each.options.begin(), each.options.end());
    const ProgramResult result = run(arguments);
    const std::string words = testing::PrintToString(each.options);
    EXPECT_EQ(result.exitCode, each.exitCode) << words << result.errors;
    EXPECT_EQ(result.output.empty(), each.output.empty()) << words << result.output;
    for (const auto& part : each.output) EXPECT_THAT(result.output, HasSubstr(part)) << words;
    EXPECT_EQ(result.errors.empty(), each.said.empty()) << words << result.errors;
    EXPECT_THAT(result.errors, HasSubstr(each.said)) << words;
  }
  EXPECT_EQ(run({"route", "small", "--batch", "-", "--profile", "step-free"}).exitCode, 2);
}

TEST_F(GuideCommand, AnswersABatch) {
  const std::pair<std::string, std::string> cases[] = {
      {R"("fromLocation":"l1","to":"@F1,5,9","language":"de")", R"("language":"de")"},
      {R"("from":["n4","n1"],"to":["u3"],"guide":true)", R"("path":["n1","n2","u2","u1","u3"])"},
      {R"("from":"bakery","nearest":"c1","closed":["l2","l1"])", R"("location":"l3")"},
      {R"("from":"l1","to":"l2","alternatives":1,"via":"n2")", R"("alternatives":[)"},
      {R"("from":"l1","to":"l2","closed":["l2"])", R"("problem":{"kind":"closed")"},
      {R"("path":["n1","n2","n3","u1"],"speed":2)", R"("seconds":1.5,)"},
      {R"("from":["n1"],"to":["n2"],"profile":null,"guide":false)",
       R"("path":["n1","n2"],"weight":3)"},
      {R"("path":["n1","n3"])", R"("error":"\"path\" must be)"},
      {R"("path":["n1"],"profile":"flying")", R"("error":"\"flying\" is not a profile)"},
      {R"("from":"l1","fromLocation":"l1","to":"l2","guide":true)", R"("error":"specify either)"},
      {R"("from":"l1","to":"l2","speed":"1")", R"("error":"\"speed\" must be a number)"},
      {R"("from":"l1","to":"l2","alternatives":1.5)", R"("error":"\"alternatives\" must be)"},
      {R"("from":"l1","to":"l2","via":[1])", R"("error":"\"via\" must be a list)"},
      {R"("from":[],"to":"l2","guide":true)", R"("error":"the start of the route is missing)"},
  };
  std::string requests;
  for (const auto& [request, answer] : cases) requests += "{\"id\":7," + request + "}\n";
  const ProgramResult result = run({"route", "small", "--batch", "-"}, requests);
  EXPECT_EQ(result.exitCode, 0);
  std::istringstream lines(result.output);
  for (const auto& [request, answer] : cases) {
    std::string line;
    std::getline(lines, line);
    EXPECT_THAT(line, testing::AllOf(StartsWith(R"({"id":7,)"), HasSubstr(answer))) << request;
    EXPECT_TRUE(RawData::parse(line)) << line;
  }
}

TEST_F(GuideCommand, SimulatesAWalk) {
  std::vector<std::string> walk = {"walk", "small", "--from", "l1", "--to", "l3", "--instant"};
  const std::string text = run(walk).output;
  EXPECT_THAT(text, testing::AllOf(StartsWith("  0:00  "), HasSubstr("Bakery"),
                                   HasSubstr(" m left)\n"), HasSubstr("Tea Room")));
  walk.emplace_back("--json");
  std::string lines = run(walk).output;
  EXPECT_THAT(lines,
              StartsWith(R"({"time":0,"map":"g","x":0,"y":0,"leg":0,"step":0,"announced":0,)"));
  EXPECT_THAT(lines, testing::EndsWith(R"("metersLeft":0,"offRoute":false,"arrived":true})"
                                       "\n"));
  EXPECT_THAT(lines, testing::Not(HasSubstr(R"("offRoute":true)")));
  walk.insert(walk.end(), {"--off-route", "10"});
  lines = run(walk).output;
  EXPECT_THAT(lines, HasSubstr(R"("offRoute":true)"));
  EXPECT_THAT(lines, testing::EndsWith("\"arrived\":true}\n"));
  EXPECT_EQ(run({"walk", "small", "--from", "l1", "--to", "l5", "--instant"}).exitCode, 1);
  EXPECT_EQ(run({"walk", "small", "--from", "l1", "--to", "l2", "--speed-up", "0"}).exitCode, 2);
}

TEST_F(GuideCommand, PrintsCosts) {
  const std::vector<std::string> costs = {"costs", "small", "--places", "-"};
  auto json = costs;
  json.insert(json.end(), {"--json", "--profile", "step-free"});
  EXPECT_EQ(run(json, "l1\r\n\nn3\nn4").output,
            R"({"places":["l1","n3","n4"],"costs":[[0,3000,-1],[3000,0,-1],[-1,-1,0]]})"
            "\n");
  EXPECT_EQ(run(costs, "n2\nn3\n").output, "\tn2\tn3\nn2\t0\t1250\nn3\t1250\t0\n");
  EXPECT_EQ(run(costs, "zoo\n").exitCode, 1);
  std::string many;
  for (int i = 0; i <= 2000; ++i) many += "n1\n";
  EXPECT_EQ(run(costs, many).exitCode, 2);
  EXPECT_EQ(run(costs, "\n").exitCode, 2);
  EXPECT_EQ(run({"costs", "small", "--places", folder_.path().string()}).exitCode, 2);
}

TEST_F(GuideCommand, AuditsPackages) {
  const std::string package = (folder_.path() / "package").string();
  const ProgramResult result = run({"audit", package});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.output, StartsWith(R"({"venue":"small","entranceAssumed":true,)"));
  EXPECT_THAT(result.output,
              testing::HasSubstr(
                  R"("unreachable":["l5"],"withoutWayBack":[],"entrances":[{"entrance":"l)"));
  EXPECT_EQ(run({"audit", "/nonexistent"}).exitCode, 2);
}

// Both floors of the route are reached over steps only, and each stairway is the only one.
TEST_F(GuideCommand, DrawsWhatOneFailureCutsOffForEverybodyAsCutOff) {
  test::writeTwoVisitsPackage(folder_, "");
  folder_.write("visits/vortex.json",
                R"([{"id": "a", "name": "A", "type": "stairs", "nodes": ["g2", "u1"]},
                    {"id": "b", "name": "B", "type": "stairs", "nodes": ["u2", "g3"]}])");
  folder_.write("visits/polygon.json", R"([{"id": "hall", "map": "g"}])");
  folder_.write("visits/location.json",
                R"([{"id": "door", "name": "Door", "type": "entrance", "nodes": [{"node": "g1"}]},
                    {"id": "museum", "name": "Museum", "type": "shop", "nodes": [{"node": "g4"}],
                     "polygons": [{"id": "hall"}]}])");
  folder_.write("visits/floor.obj",
                "mtllib floor.mtl\nusemtl hall\nv 0 0 0\nv 9 0 0\nv 9 9 0\nf 1 2 3\n");
  folder_.write("visits/floor.mtl", "newmtl hall\nKd 1 1 1\n");
  const std::string picture = (folder_.path() / "audit.png").string();
  const auto result =
      test::runProgram({"audit", (folder_.path() / "visits").string(), "--picture", picture},
                       {"XDG_CACHE_HOME=" + (folder_.path() / "caches").string()});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  const auto image = graphics::readImage(folder_.path() / "audit-G.png");
  ASSERT_TRUE(image);
  const auto count = [&](const char* color) {
    return test::countPixels(*image, *graphics::Color::parse(color));
  };
  EXPECT_GT(count("#2c7bb6"), 100) << "in the legend";
  EXPECT_EQ(count("#f28e2b"), 0);
}

}  // namespace
}  // namespace orivanta::command

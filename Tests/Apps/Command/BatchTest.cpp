#include "Apps/Command/Batch.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

TEST(Batch, AnswersRequests) {
  const auto venue = test::TwoFloorVenue().load();
  const BatchRouter router(*venue);
  const std::vector<std::pair<std::string, std::string>> cases = {
      {R"({"id": 1, "from": ["n1"], "to": ["n3"]})",
       R"({"id":1,"path":["n1","n2","n3"],"weight":6})"},
      {R"({"id": "a", "from": ["n4", "n2"], "to": ["n1"]})",
       R"({"id":"a","path":["n2","n1"],"weight":3})"},
      {R"({"fromLocation": "l1", "toLocation": "l2"})",
       R"({"id":null,"path":["n1","n2","u2"],"weight":13})"},
      {R"({"id": null, "from": ["n1"], "toLocation": "l1"})",
       R"({"id":null,"path":["n1"],"weight":0})"},
      {R"({"id": 2, "from": ["n1"], "to": ["n4"]})", R"({"id":2,"path":null,"weight":null})"},
      {R"({"id": 3, "from": [], "to": ["n4"]})", R"({"id":3,"path":null,"weight":null})"},
      // Identifiers are returned exactly as they were written.
      {R"( {"from":["n1"],"to":["n1"] , "id" : [1.50, {"id": "}\""}] } )",
       R"({"id":[1.50, {"id": "}\""}],"path":["n1"],"weight":0})"},
      {R"({"id":12345678901234567890123,"from":["n1"],"to":["n1"]})",
       R"({"id":12345678901234567890123,"path":["n1"],"weight":0})"},
      {R"({"x":{"id":1},"y":["id",2],"from":["n1"],"to":["n1"]})",
       R"({"id":null,"path":["n1"],"weight":0})"},
      {R"({"i\u0064":"\u00e9","from":["n1"],"to":["n1"]})",
       R"({"id":"\u00e9","path":["n1"],"weight":0})"},
  };
  for (const auto& [request, answer] : cases) EXPECT_EQ(router.answer(request), answer) << request;
}

TEST(Batch, AnswersBadLinesWithAnError) {
  const auto venue = test::TwoFloorVenue().load();
  const BatchRouter router(*venue);
  struct Case {
    std::string line;
    std::string id;
    std::string said;
  };
  const std::vector<Case> cases = {
      {"from n1 to n2", "null", "not a JSON object"},
      {R"([{"id":1}])", "null", "not a JSON object"},
      {R"({"id":1,"from":["n1"],"to":["n2"])", "null", "not a JSON object"},
      {R"({"id":1} {"id":2})", "null", "not a JSON object"},
      {"{\"id\":\"\xFF\"}", "null", "not a JSON object"},
      {"{}", "null", R"(missing \"from\" or \"fromLocation\")"},
      {R"({"id":"x","from":["n1"]})", R"("x")", R"(missing \"to\")"},
      {R"({"id":1,"from":"n1","to":["n2"]})", "1", "list of node identifiers"},
      {R"({"id":1,"from":["n1"],"to":{"n2":1}})", "1", "list of node identifiers"},
      {R"({"id":1,"from":["n1"],"to":[2]})", "1", "identifier of a node"},
      {R"({"id":1,"from":["n1"],"to":["n9"]})", "1", R"(unknown node \"n9\")"},
      {R"({"id":1,"fromLocation":"n1","to":["n2"]})", "1", R"(unknown location \"n1\")"},
      {R"({"id":1,"fromLocation":["l1"],"to":["n2"]})", "1", "identifier of a location"},
      {R"({"id":1,"from":["n1"],"fromLocation":"l1","to":["n2"]})", "1", "specify either"},
  };
  for (const Case& each : cases) {
    const std::string answer = router.answer(each.line);
    EXPECT_TRUE(answer.starts_with(R"({"id":)" + each.id + R"(,"error":")")) << answer;
    EXPECT_NE(answer.find(each.said), std::string::npos) << answer;
    EXPECT_TRUE(RawData::parse(answer)) << answer;
  }
}

TEST(Batch, WritesQuotedIdentifiersAndInfiniteWeights) {
  test::TwoFloorVenue small;
  small.nodes = R"([{"id": "a\"\n", "map": "g", "x": 1e300, "y": 0, "paths": [{"node": "b"}]},
                    {"id": "b", "map": "g", "x": -1e300, "y": 0}])";
  const auto venue = small.load();
  EXPECT_EQ(BatchRouter(*venue).answer(R"({"from": ["a\"\n"], "to": ["b"]})"),
            R"({"id":null,"path":["a\"\n","b"],"weight":1e999})");
}

}  // namespace
}  // namespace orivanta::command

#include "Apps/Import/Fixes/Fixes.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/Import.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Tests/Apps/Import/House/House.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::importer {

namespace {

Building fixed(const std::string& text, Findings& findings) {
  Building building = house::make();
  Fixes fixes(text, "fixes.json");
  fixes.apply(building, findings);
  Findings ignored;
  Building made = building;
  runStages(made, {}, ignored);
  fixes.nameConnectors(made, findings);
  building.connectors = made.connectors;
  return building;
}

template <class Records>
const auto& withId(const Records& records, const std::string& id) {
  const auto found = std::find_if(records.begin(), records.end(),
                                  [&](const auto& record) { return record.id == id; });
  if (found == records.end()) throw std::runtime_error("no " + id);
  return *found;
}

}  // namespace

TEST(Fixes, AreApplied) {
  Findings findings;
  const Building building = fixed(
      R"({"lab": {"kind": "corridor", "name": "Gang", "hours": "Mo-Fr 08:00-17:00", "note": "-"},
          "kitchen": {"door": "corridor@2"},
          "studio": {"door": {"latitude": 52.0, "longitude": 13.0}},
          "archive": {"door": {"x": 18, "y": 20}, "joins": [{"level": 0, "x": 1, "y": 2}, "lab"]},
          "entrance": {"ignore": true}})",
      findings);
  EXPECT_EQ(findings.count(), 0U);
  EXPECT_EQ(withId(building.areas, "lab").kind, AreaKind::walkway);
  EXPECT_EQ(withId(building.places, "lab").names.name, "Gang");
  EXPECT_EQ(withId(building.places, "lab").hours, "Mo-Fr 08:00-17:00");
  EXPECT_NEAR(withId(building.doors, "fix-kitchen").position.x, 26.0, 0.3);
  EXPECT_NEAR(withId(building.doors, "fix-studio").position.x, 0.0, 0.01);
  EXPECT_EQ(withId(building.doors, "fix-archive").level, 2.0);
  EXPECT_EQ(withId(building.connectorHints, "fix-archive").areas.size(), 2U);
  EXPECT_THROW(withId(building.doors, "entrance"), std::runtime_error);
}

TEST(Fixes, NameConnectors) {
  const std::pair<std::string, std::string> rows[] = {
      {"stairs@1", "stairs"}, {"lift@2", "elevator"}, {"escalator@0", "escalator"}};
  for (const auto& [area, kind] : rows) {
    Findings findings;
    const Building building =
        fixed("{\"" + area + R"(": {"name": {"de": "Nordseite", "en": "North side"}}})", findings);
    EXPECT_EQ(findings.count(), 0U);
    EXPECT_EQ(building.places.size(), house::make().places.size()) << area;
    std::vector<std::string> named;
    for (const Connector& connector : building.connectors)
      if (connector.names.name == "North side") named.emplace_back(wordOf(connector.kind));
    EXPECT_EQ(named, std::vector<std::string>{kind}) << area;
  }
}

TEST(Fixes, ReportWhatTheyCannotUse) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"nowhere": {"ignore": true}})", "fix-unknown-id"},
      {R"({"lab": {"color": "red"}})", "fix-unusable"},
      {R"({"lab": {"kind": "tent"}})", "fix-unusable"},
      {R"({"lab": {"door": "kitchen"}})", "fix-unusable"},
      {R"({"lab": {"joins": [7]}})", "fix-unusable"},
      {R"({"lab": 1})", "fix-unusable"},
  };
  for (const auto& [text, rule] : cases) {
    Findings findings;
    fixed(text, findings);
    EXPECT_EQ(findings.countOf(rule), 1U) << text;
  }
  Findings findings;
  EXPECT_THROW(fixed("[]", findings), SourceError);
  EXPECT_THROW(fixed("{\"lab\":}", findings), SourceError);
  const test::TemporaryFolder folder;
  const auto large = folder.write("large.json", "{}");
  EXPECT_NO_THROW(Fixes::read(large));
  std::filesystem::resize_file(large, 17U << 20U);
  EXPECT_THROW(Fixes::read(large), SourceError);
}

TEST(Fixes, SkeletonHasNoEffect) {
  Finding finding;
  finding.source = "lab";
  finding.message = "The room \"lab\" has no door.";
  Findings findings;
  fixed(fixesSkeleton({finding, finding}), findings);
  EXPECT_EQ(findings.count(), 0U);
  EXPECT_EQ(fixesSkeleton({}), "{\n}\n");
}

}  // namespace orivanta::importer

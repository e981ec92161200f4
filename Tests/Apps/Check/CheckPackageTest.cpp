#include "Apps/Check/CheckPackage.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "Apps/Check/PackagePlan.hpp"
#include "Tests/Apps/DemoVenue/GeneratedVenue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::check {
namespace {

using importer::Finding;
using importer::Findings;
using importer::Severity;
using testing::HasSubstr;

// A hall with a room on the ground floor, another room above, and stairs between them.
const std::map<std::string, std::string>& soundPackage() {
  static const std::map<std::string, std::string> files = {
      {"venue.json", R"({"id": "v", "slug": "small", "name": "Small", "unitsPerMetre": 1})"},
      {"map.json", R"([
{"id": "g", "name": "Ground", "elevation": 0, "scene": {"obj": "maps/g.obj"}},
{"id": "u", "name": "Upper", "elevation": 4, "scene": {"obj": "maps/u.obj"}}])"},
      {"category.json", R"([{"id": "rooms", "name": "Rooms"}])"},
      {"location.json", R"([
{"id": "shop", "name": "Shop", "type": "shop", "categories": ["rooms"],
 "nodes": [{"node": "in-shop"}, {"node": "door"}], "polygons": [{"id": "area"}]},
{"id": "attic", "name": "Attic", "type": "room", "nodes": [{"node": "up"}]}])"},
      {"node.json", R"([
{"id": "hall", "map": "g", "x": 5, "y": -2, "paths": [{"node": "door"}, {"node": "foot"}]},
{"id": "door", "map": "g", "x": 5, "y": 0, "paths": [{"node": "hall"}, {"node": "in-shop"}]},
{"id": "in-shop", "map": "g", "x": 5, "y": 5, "paths": [{"node": "door"}]},
{"id": "foot", "map": "g", "x": 9, "y": -2, "paths": [{"node": "hall"}]},
{"id": "top", "map": "u", "x": 9, "y": -2, "paths": [{"node": "up"}]},
{"id": "up", "map": "u", "x": 5, "y": -2, "paths": [{"node": "top"}]}])"},
      {"vortex.json",
       R"([{"id": "stairs", "name": "Stairs", "type": "stairs", "nodes": ["foot", "top"]}])"},
      {"polygon.json", R"([
{"id": "area", "map": "g", "entrances": [{"id": "door"}]}])"},
      {"maps/g.obj",
       "usemtl area\nv 0 0 0\nv 10 0 0\nv 10 10 0\nv 0 10 0\nf 1 2 3 4\nf 1 3 4\nusemtl Ground\n"
       "v 0 -9 0\nv 20 -9 0\nv 20 0 0\nf 5 6 7\n"},
      {"maps/u.obj", "usemtl Ground\nv 0 -9 0\nv 20 -9 0\nv 20 0 0\nf 1 2 3\n"}};
  return files;
}

struct Mistake {
  std::string file;
  std::string before;  // replaced; "" replaces the whole file
  std::string after;
  std::string rule;
  std::string id;
  std::string field;
  std::size_t line;  // 0: none
  std::string message;
};

const Mistake mistakes[] = {
    {"category.json", "}]", "},\n]", "trailing-comma", "", "", 1, "line 1, column 34"},
    {"location.json", R"( "type": "room",)", "", "member-missing", "attic", "type", 4, "\"type\""},
    {"node.json", R"("x": 5, "y": 5)", R"("x": 5)", "member-missing", "in-shop", "y", 4, "\"y\""},
    {"node.json", R"("x": 5, "y": 5)", R"("x": "5", "y": 5)", "member-of-wrong-kind", "in-shop",
     "x", 4, "not a number"},
    {"node.json", R"({"node": "foot"})", R"({"node": "feet"})", "path-to-unknown-node", "hall",
     "paths", 2, "\"feet\""},
    {"node.json", R"({"node": "foot"})", R"("foot")", "path-to-unknown-node", "hall", "paths", 2,
     "no identifier"},
    {"node.json", R"([{"node": "hall"}]},)", "[]},", "one-way-path", "hall", "paths", 2,
     "from \"hall\" to \"foot\""},
    {"node.json", R"("foot", "map": "g")", R"("foot", "map": "G")", "unknown-map", "foot", "map", 5,
     "\"G\""},
    {"node.json", R"("foot", "map": "g")", R"("foot", "map": "u")", "path-between-floors", "hall",
     "paths", 2, "\"foot\" on \"u\""},
    {"map.json", "maps/u.obj", "maps/U.obj", "model-missing", "u", "scene", 3, "maps/U.obj"},
    {"map.json", "maps/u.obj", "../u.obj", "model-missing", "u", "scene", 3, "../u.obj"},
    {"maps/u.obj", "", "a picture", "broken-model", "u", "scene", 3, "u.obj"},
    {"maps/u.obj", "f 1 2 3", "f 1 2 3\nf 1 2 9", "damaged-model", "u", "scene", 3, "One face"},
    {"map.json", R"("obj": "maps/u.obj")", "", "no-model", "u", "scene", 3, "no model"},
    {"maps/g.obj", "usemtl area", "usemtl aera", "polygon-without-material", "area", "id", 2,
     "\"area\""},
    {"location.json", R"("attic")", R"("shop")", "duplicate-id", "shop", "id", 2, "line 4"},
    {"vortex.json", R"("top")", R"("tip")", "unknown-connector-node", "stairs", "nodes", 1,
     "\"tip\""},
    {"vortex.json", R"("top")", R"("foot")", "connector-with-one-floor", "stairs", "nodes", 1,
     "\"g\""},
    {"vortex.json", R"("stairs", "nodes": ["foot", "top")", R"("lift", "nodes": ["foot", "hall")",
     "connector-with-one-floor", "stairs", "nodes", 1, "\"g\""},
    {"location.json", R"(["rooms"])", R"(["room"])", "unknown-category", "shop", "categories", 2,
     "\"room\""},
    {"node.json", R"("x": 5, "y": 0)", R"("x": 5, "y": -2.5)", "entrance-far-away", "area",
     "entrances", 2, "2.5 m"},
    {"location.json", R"({"node": "in-shop"}, )", "", "only-entrance-nodes", "shop", "nodes", 2,
     "\"Shop\""},
    // further ones
    {"node.json", R"({"id": "in-shop",)", R"({"id": "alone", "map": "g", "x": 1, "y": 1},
{"id": "in-shop",)",
     "node-without-paths", "alone", "paths", 4, "\"alone\""},
    {"vortex.json", R"(["foot", "top"])", "[]", "unreachable", "attic", "nodes", 4, "\"Attic\""},
    {"vortex.json", R"([{"id")", R"([{"id": "steps", "name": "", "type": "stairs", "accessible": 0,
  "nodes": ["hall", "up"]}, {"id")",
     "accessible-connector-too-late", "stairs", "accessible", 2, "\"steps\""},
    {"location.json", R"("nodes": [{"node": "up"}])", R"("nodes": [])", "place-without-position",
     "attic", "nodes", 4, "\"Attic\""},
    {"polygon.json", R"({"id": "door"})", R"({"id": "up"})", "entrance-on-another-floor", "area",
     "entrances", 2, "\"up\""},
    {"polygon.json", R"({"id": "door"})", R"({"id": "gate"})", "unknown-entrance", "area",
     "entrances", 2, "\"gate\""},
    {"location.json", R"("name": "Attic")", R"("name": "Attic", "hours": "at noon")",
     "hours-unreadable", "attic", "hours", 4, "at noon"},
    {"location.json", R"("name": "Attic")", R"("name": "Attic", "logo": "images/a.png")",
     "picture-missing", "attic", "logo", 4, "images/a.png"},
    {"venue.json", R"("small")", R"("")", "slug-unusable", "v", "slug", 1, "URL"},
    {"venue.json", R"({"id")", R"(["id")", "not-json", "", "", 1, "line 1"},
    {"vortex.json", "", "{}", "wrong-shape", "", "", 0, "array"},
    {"closure.json", "", R"(["stairs"])", "closures-unreadable", "", "", 0, "closure.json"},
};

class CheckPackage : public testing::Test {
 protected:
  Findings findingsWith(const Mistake* mistake) const {
    const test::TemporaryFolder root;
    for (const auto& [name, contents] : soundPackage()) root.write(name, contents);
    if (mistake != nullptr) {
      const auto sound = soundPackage().find(mistake->file);
      std::string contents = sound == soundPackage().end() ? "" : sound->second;
      const std::size_t at = contents.find(mistake->before);
      EXPECT_NE(at, std::string::npos);
      if (mistake->before.empty()) {
        contents = mistake->after;
      } else {
        contents.replace(at, mistake->before.size(), mistake->after);
      }
      root.write(mistake->file, contents);
    }
    return checkPackage(root.path());
  }
};

TEST_F(CheckPackage, NamesEachMistakeWithItsPlaceEffectAndRemedy) {
  EXPECT_EQ(findingsWith(nullptr).count(), 0U);
  for (const Mistake& mistake : mistakes) {
    SCOPED_TRACE(mistake.rule + " " + mistake.after);
    const std::vector<Finding> all = findingsWith(&mistake).sorted();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Finding& finding) {
      return finding.rule == mistake.rule && finding.source == mistake.id;
    });
    if (found == all.end()) {
      ADD_FAILURE() << "not found; the first is " << (all.empty() ? "missing" : all.front().rule);
      continue;
    }
    EXPECT_EQ(found->field, mistake.field);
    EXPECT_EQ(found->line.value_or(0), mistake.line);
    EXPECT_THAT(found->message, HasSubstr(mistake.message));
    EXPECT_FALSE(found->file.empty() || found->effect.empty() || found->advice.empty());
  }
}

TEST_F(CheckPackage, MissingFilesDoNotHideOtherMistakes) {
  const test::TemporaryFolder root;
  for (const auto& [name, contents] : soundPackage())
    if (name != "category.json" && name != "maps/u.obj") root.write(name, contents);
  const Findings findings = checkPackage(root.path());
  EXPECT_EQ(findings.countOf("file-missing"), 1U);
  EXPECT_EQ(findings.countOf("model-missing"), 1U);
  EXPECT_EQ(findings.count(), 2U);
  EXPECT_EQ(checkPackage(root.path() / "nowhere").countOf("file-missing"), 7U);
}

TEST_F(CheckPackage, IsQuietOnSoundBuildings) {
  using Counts = std::map<std::string, std::size_t>;
  const auto countsOf = [](const std::filesystem::path& package) {
    Counts counts;
    for (const Finding& finding : checkPackage(package).sorted()) ++counts[finding.rule];
    return counts;
  };
  EXPECT_EQ(countsOf(test::generatedVenue()), Counts());
  const auto venues = test::venuesFolder();
  if (!venues) GTEST_SKIP() << "no real buildings";
  // What these buildings have indeed.
  const std::map<std::string, Counts> expected = {
      {"igml-pnu201", {{"node-without-paths", 1}, {"unreachable", 1}}},
      {"osm-dresden-apb",
       {{"connector-within-floor", 1}, {"entrance-far-away", 1}, {"node-without-paths", 1}}},
      {"osm-grenoble-grandplace",
       {{"connector-within-floor", 1}, {"node-without-paths", 5}, {"unreachable", 3}}},
      {"jp-shinjuku",
       {{"connector-within-floor", 1},
        {"entrance-far-away", 2},
        {"node-without-paths", 8},
        {"path-to-unknown-node", 7},
        {"unknown-map", 1}}}};
  for (const auto& [name, counts] : expected) EXPECT_EQ(countsOf(*venues / name), counts) << name;
}

TEST_F(CheckPackage, ReportsShowTheNumbersOfFindingsOnThePlan) {
  const test::TemporaryFolder root;
  for (const auto& [name, contents] : soundPackage()) root.write(name, contents);
  root.write("node.json", R"([{"id": "<door>", "map": "g", "x": 3, "y": 4}])");
  root.write("location.json", "[]");
  root.write("vortex.json", "[]");
  root.write("polygon.json", "[]");
  const importer::Report report = packageReport(root.path(), checkPackage(root.path()));
  ASSERT_EQ(report.plans.size(), 2U);
  EXPECT_EQ(report.plans.front().title, "Upper");
  EXPECT_THAT(report.plans.back().svg, HasSubstr("<title>area</title>"));
  EXPECT_THAT(report.plans.back().svg,
              HasSubstr("href=\"#finding-1\"><circle cx=\"3.00\" cy=\"-4.00\""));
  EXPECT_THAT(reportHtml(report), HasSubstr("&lt;door&gt;"));
}

}  // namespace
}  // namespace orivanta::check

// The documents about packages say what the programs do: the JSON Schemas, and the example.
#include <gmock/gmock.h>

#include <array>
#include <boost/json/array.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <cstdio>
#include <regex>
#include <sstream>

#include "Apps/Check/CheckPackage.hpp"
#include "Apps/Check/RecordMembers.hpp"
#include "Apps/Server/VenueServer.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/TwoFloorPackage.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::check {
namespace {

namespace json = boost::json;
using testing::HasSubstr;

const std::filesystem::path docs = ORIVANTA_DOCS;

// Runs the validator for lines of a definition and a value. Returns a line for each.
std::vector<std::string> invalidMembers(const std::string& schema, const std::string& lines) {
  const test::TemporaryFolder folder;
  const auto input = folder.write("lines", lines);
  const std::string command =
      std::string("/usr/bin/python3 " ORIVANTA_TESTS "/Apps/Check/validate-records.py ") +
      (docs / schema).string() + " < " + input.string();
  std::FILE* output = popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), output))
    text.append(buffer.data(), count);
  EXPECT_EQ(pclose(output), 0) << "is python3-jsonschema installed?";
  std::istringstream stream(text);
  std::vector<std::string> result;
  for (std::string line; std::getline(stream, line);) result.push_back(line);
  return result;
}

// A complete record of each kind.
json::object completeRecord(RecordKind kind) {
  json::object record;
  for (const Member& member : membersOf(kind))
    record[std::string(member.name)] = member.kind == ValueKind::text      ? json::value("g")
                                       : member.kind == ValueKind::number  ? json::value(1.5)
                                       : member.kind == ValueKind::boolean ? json::value(true)
                                       : member.kind == ValueKind::list ? json::value(json::array())
                                       : member.kind == ValueKind::object
                                           ? json::value(json::object())
                                           : json::value("a.png");
  return record;
}

// Whether the loader keeps the record on the floor "g".
bool loaderKeeps(RecordKind kind, const json::object& record) {
  const std::string text = "[" + json::serialize(record) + "]";
  const bool isOnFloor = record.contains("map") && record.at("map") == "g";
  switch (kind) {
    case RecordKind::venue:
      return test::recordsIn<Venue>(text).size() == 1;
    case RecordKind::map:
      return test::recordsIn<Map>(text).size() == 1;
    case RecordKind::location:
      return test::recordsIn<Location>(text).size() == 1;
    case RecordKind::category:
      return test::recordsIn<Category>(text).size() == 1;
    case RecordKind::node:
      return isOnFloor && test::recordsIn<Node>(text).size() == 1;
    case RecordKind::vortex:
      return test::recordsIn<Vortex>(text).size() == 1;
    case RecordKind::polygon:
      return isOnFloor && test::recordsIn<Polygon>(text).size() == 1;
  }
  return false;
}

struct Mutation {
  RecordKind kind;
  const Member* member;
  json::object record;
};

// Each member of each kind of record: missing, and with values of all kinds.
std::vector<Mutation> mutations() {
  const json::value values[] = {nullptr, true, 7, "g", json::array(), json::object()};
  std::vector<Mutation> all;
  for (std::size_t index = 0; index < recordKindCount; ++index) {
    const auto kind = static_cast<RecordKind>(index);
    for (const Member& member : membersOf(kind)) {
      json::object record = completeRecord(kind);
      record.erase(std::string(member.name));
      all.push_back({kind, &member, record});
      for (const json::value& value : values) {
        record[std::string(member.name)] = value;
        all.push_back({kind, &member, record});
      }
    }
  }
  return all;
}

TEST(DocumentedFormat, SchemaCheckAndLoaderAgreeOnEveryMember) {
  const std::vector<Mutation> all = mutations();
  std::string lines;
  for (const Mutation& mutation : all)
    lines +=
        json::serialize(json::array{std::string(nameOf(mutation.kind)), mutation.record}) + '\n';
  const auto invalid = invalidMembers("package.schema.json", lines);
  ASSERT_EQ(invalid.size(), all.size());
  for (std::size_t index = 0; index < all.size(); ++index) {
    const auto& [kind, member, record] = all[index];
    const std::string text = json::serialize(record);
    EXPECT_THAT(invalid[index], testing::AnyOf("", std::string(member->name))) << text;
    const bool isValid = invalid[index].empty();
    EXPECT_EQ(loaderKeeps(kind, record), isValid || !member->required) << text;
    const test::TemporaryFolder folder;
    for (std::size_t other = 0; other < recordKindCount; ++other)
      folder.write(std::string(nameOf(static_cast<RecordKind>(other))) + ".json",
                   static_cast<RecordKind>(other) == RecordKind::map ? R"([{"id": "g"}])" : "[]");
    const bool isVenue = kind == RecordKind::venue;
    folder.write(std::string(nameOf(kind)) + ".json", isVenue ? text : "[" + text + "]");
    const importer::Findings findings = checkPackage(folder.path(), Depth::records);
    const std::size_t lost =
        findings.countOf("member-missing") + findings.countOf("member-of-wrong-kind");
    EXPECT_EQ(lost == 0, isValid || !member->required) << text;
    EXPECT_EQ(findings.countOf("member-ignored") == 0, isValid || member->required) << text;
  }
}

TEST(DocumentedFormat, TheExampleIsACompletePackageWithRoutes) {
  const test::TemporaryFolder folder;
  const std::string document = test::contentsOf(docs / "PackageFormat.md");
  const std::regex block("\n```(?:json|text) house/(\\S+)\n([^`]*)```\n");
  for (std::sregex_iterator part(document.begin(), document.end(), block), end; part != end; ++part)
    folder.write((*part)[1].str(), (*part)[2].str());
  EXPECT_EQ(checkPackage(folder.path()).count(), 0U);
  server::ServerOptions options;
  options.folders = {folder.path()};
  const server::VenueServer server(options);
  const auto result = test::runProgram(
      {"route", "house", "--from", "kitchen", "--to", "bedroom", "--endpoint", server.root()});
  EXPECT_THAT(result.output, HasSubstr("Length:  11.5 m (1150.0 units)\n")) << result.errors;
}

TEST(DocumentedFormat, FindingsInJsonFollowTheirSchema) {
  const test::TemporaryFolder folder;
  folder.write("p/venue.json", R"({"id": "v", "slug": "s", "name": 5})");
  folder.write("p/node.json", R"([{"id": "n", "map": "m", "x": 1, "y": 2}])");
  const auto result = test::runProgram({"check", "--json", (folder.path() / "p").string()});
  EXPECT_EQ(result.exitCode, 1);
  std::istringstream stream(result.output);
  std::string lines;
  for (std::string line; std::getline(stream, line);) lines += R"(["", )" + line + "]\n";
  EXPECT_THAT(lines, HasSubstr("member-of-wrong-kind"));
  for (const std::string& invalid : invalidMembers("findings.schema.json", lines))
    EXPECT_EQ(invalid, "");
}

TEST(DocumentedFormat, JsonOutputFollowsItsSchema) {
  const test::TemporaryFolder folder;
  const std::string package = (folder.path() / "package").string();
  test::writePackage(folder, "package", {});
  const std::string places = folder.write("places", "l1\nl2\n").string();
  const std::string picture = (folder.path() / "a.png").string();
  server::ServerOptions options;
  options.folders = {package};
  const server::VenueServer server(options);
  const std::vector<std::pair<const char*, std::vector<std::string>>> commands = {
      {"venues", {"venues"}},
      {"venue", {"venue", "small"}},
      {"locations", {"venue", "small", "--locations"}},
      {"search", {"search", "small", "lift"}},
      {"route", {"route", "small", "--from", "l1", "--to", "l2"}},
      {"route", {"route", "small", "--from", "n1", "--to", "n4"}},
      {"guidance", {"route", "small", "--from", "l1", "--to", "l2", "--alternatives", "2"}},
      {"guidance", {"route", "small", "--from", "n1", "--to", "n4", "--guide"}},
      {"walk", {"walk", "small", "--from", "l1", "--to", "l2"}},
      {"costs", {"costs", "small", "--places", places}},
      {"files", {"render", "small", "-o", picture, "--size", "20x20"}},
      {"audit", {"audit", package}},
      {"import", {"import", ORIVANTA_HOUSE, "-o", (folder.path() / "house").string()}},
  };
  std::string lines;
  for (const auto& [definition, arguments] : commands) {
    std::vector<std::string> all = arguments;
    if (std::string_view(definition) != "audit") all.emplace_back("--json");
    const auto result = test::runProgram(
        all, {"ORIVANTA_ENDPOINT=" + server.root(), "XDG_CACHE_HOME=" + folder.path().string()});
    std::istringstream stream(result.output);
    std::string last;
    while (std::getline(stream, last) && !stream.eof())
      if (std::string_view(definition) != "import" || last.find("\"package\"") != std::string::npos)
        lines += "[\"" + std::string(definition) + "\"," + last + "]\n";
    EXPECT_NE(result.output, "") << definition << ' ' << result.errors;
  }
  const auto invalid = invalidMembers("output.schema.json", lines);
  EXPECT_GE(invalid.size(), commands.size()) << lines;
  for (const std::string& members : invalid) EXPECT_EQ(members, "") << lines;
}

}  // namespace
}  // namespace orivanta::check

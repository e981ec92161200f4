// The command `check`, and what `serve` says about packages at start.
#include <gmock/gmock.h>

#include <csignal>

#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Support/TwoFloorPackage.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::check {
namespace {

using test::Program;
using test::runProgram;
using testing::HasSubstr;

class CheckCommand : public testing::Test {
 protected:
  CheckCommand() {
    test::writePackage(root_, "sound", {});
    test::TwoFloorVenue broken;
    broken.categories = R"([{"id": "c1"}, {"id": "c2"}])";
    test::writePackage(root_, "broken", broken);
    test::writePackage(root_, "unreadable", {});
    root_.write("unreadable/map.json", "[{},]");
    root_.write("plan.txt", "a plan");
  }

  std::string at(const std::string& name) const { return (root_.path() / name).string(); }

  test::TemporaryFolder root_;
};

TEST_F(CheckCommand, PrintsGroupsAndASummaryAndReturnsWhetherDataIsLost) {
  struct Row {
    std::vector<std::string> arguments;
    int exitCode;
    std::string output;  // a part
    std::string errors;  // a part
  };
  const std::string sound = at("sound");
  const Row rows[] = {
      {{sound}, 0, sound + ": ", ""},
      {{sound}, 0, "warning: no-model (2)\n  map.json:2  f1  The floor has no model", ""},
      {{sound, "--strict"}, 1, "no-model", ""},
      {{at("broken")},
       1,
       "violation: member-missing (2)\n  category.json:1  c1  The category has no",
       ""},
      {{at("unreadable")}, 1, "map.json:1  The file map.json is not JSON: a comma before", ""},
      {{sound, at("broken")}, 1, at("broken") + ": 2 violations", ""},
      {{sound, at("broken"), "--html", at("a.html")}, 2, "", "exactly one"},
      {{at("nothing")}, 2, "", "no such file"},
      {{at("plan.txt")}, 5, "", "plan.txt"},
      {{sound, "--html", at("nothing/a.html")}, 4, "no-model", "a.html"},
      {{sound, "--html", at("a.html")}, 0, "no-model", ""}};
  for (const Row& row : rows) {
    std::vector<std::string> arguments = {"check"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const auto result = runProgram(arguments);
    EXPECT_EQ(result.exitCode, row.exitCode) << row.arguments.front();
    EXPECT_THAT(result.output, HasSubstr(row.output));
    EXPECT_THAT(result.errors, HasSubstr(row.errors));
  }
  EXPECT_THAT(test::contentsOf(at("a.html")), HasSubstr("<tr id=\"finding-1\">"));
}

TEST_F(CheckCommand, ServePrintsASummaryOfPackagesWithMistakes) {
  Program server({"serve", "--port", "0", at("broken")});
  EXPECT_THAT(server.readLine(), HasSubstr("http://"));
  server.endWith(SIGTERM);
  const auto result = server.finish();
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_THAT(result.errors, HasSubstr("2 violations"));
  EXPECT_THAT(result.errors, HasSubstr("run `orivanta check " + at("broken") + "`"));
  EXPECT_THAT(runProgram({"serve", at("unreadable")}).errors,
              HasSubstr("line 1, column 4; run `orivanta check " + at("unreadable") + "`"));
}

}  // namespace
}  // namespace orivanta::check

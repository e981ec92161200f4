// Runs `orivanta import` on a small extract.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::command {
namespace {

namespace fs = std::filesystem;
using test::ProgramResult;
using test::runProgram;

// A corridor with a room on either side; one has a door.
constexpr const char* extract = R"(<osm version="0.6">
<node id="1" lat="52.00000" lon="13.00000"/><node id="2" lat="52.00000" lon="13.00030"/>
<node id="3" lat="52.00003" lon="13.00030"/><node id="4" lat="52.00003" lon="13.00000"/>
<node id="5" lat="52.00010" lon="13.00030"/><node id="6" lat="52.00010" lon="13.00000"/>
<node id="7" lat="51.99990" lon="13.00000"/><node id="8" lat="51.99990" lon="13.00030"/>
<node id="9" lat="52.00003" lon="13.00015"><tag k="door" v="yes"/></node>
<way id="1"><nd ref="1"/><nd ref="2"/><nd ref="3"/><nd ref="9"/><nd ref="4"/><nd ref="1"/>
 <tag k="indoor" v="corridor"/><tag k="level" v="0"/></way>
<way id="2"><nd ref="4"/><nd ref="9"/><nd ref="3"/><nd ref="5"/><nd ref="6"/><nd ref="4"/>
 <tag k="indoor" v="room"/><tag k="level" v="0"/><tag k="name" v="Workshop"/></way>
<way id="3"><nd ref="7"/><nd ref="8"/><nd ref="2"/><nd ref="1"/><nd ref="7"/>
 <tag k="indoor" v="room"/><tag k="level" v="0"/><tag k="name" v="Shed"/><tag k="opening_hours" v="sometimes"/></way>
</osm>)";

class ImportBuilding : public testing::Test {
 protected:
  void SetUp() override { std::ofstream(folder_ / "house.osm") << extract; }

  ProgramResult import(const std::vector<std::string>& more,
                       const std::string& source = "house.osm") const {
    std::vector<std::string> arguments = {"import", (folder_ / source).string(), "-o",
                                          (folder_ / "house").string()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return runProgram(arguments, {});
  }

  const test::TemporaryFolder temporary_;
  const fs::path folder_ = temporary_.path();
};

}  // namespace

TEST_F(ImportBuilding, WritesAPackageAndTellsWhatItMade) {
  const std::string report = (folder_ / "house.html").string();
  const ProgramResult result = import({"--report", report});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_EQ(result.output,
            "1 floor, 2 rooms (1 door guessed), 0 lifts, 0 stairs; 2 rooms reachable; 1 thing to "
            "look at: " +
                report + "\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_TRUE(fs::exists(folder_ / "house" / "venue.json"));
  EXPECT_TRUE(fs::exists(report));
  const ProgramResult json = import({"--json"});
  EXPECT_NE(json.output.find("\"rule\":\"hours-unreadable\""), std::string::npos) << json.output;
  EXPECT_NE(json.output.find("\"roomsReachable\":2"), std::string::npos) << json.output;
}

TEST_F(ImportBuilding, FailsWithoutTouchingTheTarget) {
  std::ofstream(folder_ / "broken.osm") << "<osm><node";
  std::ofstream(folder_ / "fixes.json") << R"({"way/-3": {"hours": "Mo-Fr 08:00-17:00"}})";
  const struct {
    std::vector<std::string> options;
    const char* source;
    int exitCode;
  } cases[] = {
      {{"--strict"}, "house.osm", 1},
      {{"--bounds", "1,2,3"}, "house.osm", 2},
      {{"--level-shift", "A"}, "house.osm", 2},
      {{"--format", "dwg"}, "house.osm", 2},
      {{}, "broken.osm", 5},
      {{}, "missing.osm", 5},
      {{"--strict", "--fixes", (folder_ / "fixes.json").string()}, "house.osm", 0},
  };
  for (const auto& [options, source, exitCode] : cases) {
    const ProgramResult result = import(options, source);
    EXPECT_EQ(result.exitCode, exitCode) << source << result.output << result.errors;
    EXPECT_EQ(fs::exists(folder_ / "house"), exitCode == 0);
  }
  fs::remove_all(folder_ / "house");
  fs::create_directories(folder_ / "house");
  std::ofstream(folder_ / "house" / "thesis.txt") << "words";
  EXPECT_EQ(import({}).exitCode, 2);
  EXPECT_TRUE(fs::exists(folder_ / "house" / "thesis.txt"));
}

// The sanitizers need more address space than the limit leaves.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(ImportBuilding, ExplainsThatThereIsNotEnoughMemory) {
  const fs::path large = temporary_.write("large.osm", "");
  fs::resize_file(large, 300U << 20U);  // sparse
  const std::string command = "ulimit -v 300000; exec " ORIVANTA_COMMAND " import " +
                              large.string() + " -o " + (folder_ / "house").string() + " 2> " +
                              (folder_ / "errors").string();
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 6);
  std::ifstream errors(folder_ / "errors");
  std::string line;
  std::getline(errors, line);
  EXPECT_EQ(line, "orivanta: there is not enough memory");
}
#endif

}  // namespace orivanta::command

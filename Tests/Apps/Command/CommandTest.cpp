// Runs the program against the venue server.
#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <iterator>
#include <sstream>

#include "Apps/Server/VenueServer.hpp"
#include "Tests/Apps/Command/Program.hpp"
#include "Tests/Support/TwoFloorPackage.hpp"

namespace orivanta::command {
namespace {

using test::Program;
using test::ProgramResult;
using test::runProgram;

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::vector<std::string> wordsOf(const char* text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

class Command : public testing::Test {
 protected:
  Command() : server_(options()) {}

  ProgramResult run(const std::vector<std::string>& arguments, std::string_view input = "") const {
    return runProgram(arguments, environment(), input);
  }

  std::vector<std::string> environment() const {
    return {"ORIVANTA_ENDPOINT=" + server_.root(), "ORIVANTA_USERNAME=me",
            "ORIVANTA_PASSWORD=s3cret"};
  }

  server::ServerOptions options() const {
    test::writePackage(folder_, "package", {});
    server::ServerOptions result;
    result.folders = {folder_.path() / "package"};
    result.username = "me";
    result.password = "s3cret";
    result.pageSize = 2;
    return result;
  }

  test::TemporaryFolder folder_;
  server::VenueServer server_;
};

TEST_F(Command, AnswersQueries) {
  struct Case {
    const char* words;
    int exitCode;
    std::string output;
    std::string said = {};  // a part of standard error; "" if it must be empty
  };
  const std::string rides = "Depart from Bakery\nArrive at Book Shop\nFloors:      G, F1\n";
  const Case cases[] = {
      {"venues", 0, "small  Small Mall\n"},
      {"venues --json", 0, "[{\"id\":\"v\",\"slug\":\"small\",\"name\":\"Small Mall\"}]\n"},
      {"venue small --locations", 0, "l1  Bakery     G   Food\nl2  Book Shop  F1  Shops\n"},
      {"venue small --locations o", 0, "l2  Book Shop  F1  Shops\n"},
      {"venue small --locations zoo", 1, "",
       "no location whose name or identifier contains \"zoo\""},
      {"search small elevator", 0, "lift  Lift A  lift  G, F1\n"},
      {"search small book g", 1, "", "nothing found for \"book g\""},
      {"search small f1 --most 1", 0, "l2  Book Shop  shop  F1\n"},
      {"venue smell", 1, "", "the server has small. Did you mean \"small\"?"},
      {"route small --from bakery --to l2", 0,
       rides + "Connectors:  Stairs B (stairs), G -> F1\nLength:      1.5 m (3.0 units)\n"
               "Time:        1 min\n"},
      {"route --accessible --from bakery --to l2 small", 0,
       rides + "Connectors:  Lift A (elevator), G -> F1\nLength:      4.5 m (9.0 units)\n"
               "Time:        1 min\n"},
      {"route small --from n4 --from l1 --to n1", 0,
       "Floors:  G\nLength:  0.0 m (0.0 units)\nTime:    1 min\n"},
      {"route small --from n1 --to n4 --json", 1, "{\"path\":null,\"weight\":null}\n",
       "no route from n1 to n4"},
      {"route small --from n1 --to cinema", 1, "", "no location or node"},
      {"route small --from n1 --to b", 2, "", "l2  Book Shop  F1"},
  };
  for (const Case& each : cases) {
    const ProgramResult result = run(wordsOf(each.words));
    EXPECT_EQ(result.exitCode, each.exitCode) << result.errors;
    EXPECT_EQ(result.output, each.output);
    EXPECT_EQ(result.errors.empty(), each.said.empty()) << result.errors;
    EXPECT_TRUE(contains(result.errors, each.said)) << result.errors;
  }
  EXPECT_EQ(run({"help"}).output, run({"--help"}).output);
  EXPECT_EQ(run({"help", "route"}).output, run({"route", "--help"}).output);
  EXPECT_EQ(run({"-V"}).output, run({"--version"}).output);
  const std::string text = run({"venue", "small"}).output;
  EXPECT_TRUE(text.starts_with("Small Mall (small)\n") && contains(text, "Stairs B")) << text;
  EXPECT_FALSE(contains(run({"venue", "small", "--accessible"}).output, "Stairs B"));
  EXPECT_TRUE(contains(run({"--json", "venue", "small"}).output, R"("nodes":6)"));
}

TEST_F(Command, RefusesWrongUse) {
  const std::string missing = (folder_.path() / "missing").string();
  const std::string folder = folder_.path().string();
  const std::string package = folder + "/package";
  const std::string bad = folder_.write("bad/venue.json", "{").parent_path().string();
  const std::string root = server_.root();
  const std::string port = std::to_string(std::stoi(root.substr(root.rfind(':') + 1)));
  struct Case {
    std::vector<std::string> arguments;
    std::string said;
  };
  const std::vector<Case> cases = {
      {{}, "subcommand is required"},
      {{"fly"}, "unknown command \"fly\".\n"},
      {{"rotue"}, "unknown command \"rotue\". Did you mean \"route\"?"},
      {{"help", "Pub"}, "there is no command \"Pub\". Did you mean \"publish\"?"},
      {{"venues", "--fast"}, "unknown option \"--fast\".\n"},
      {{"venues", "--jsno=1", "x"}, "unknown option \"--jsno\". Did you mean \"--json\"?"},
      {{"venues", "x", "--fast"}, "unexpected argument \"x\".\n"},
      {{"venue"}, "SLUG is required"},
      {{"route", "small", "--from", "n1"}, "--to"},
      {{"route", "small", "--from", "n1", "--to", ""}, "empty"},
      {{"route", "small", "--batch", "-", "--to", "n1"}, "--batch cannot be combined"},
      {{"route", "small", "--batch", missing}, "cannot read \"" + missing},
      {{"route", "small", "--batch", folder}, "cannot read \"" + folder},
      {{"route", "small", "--batch", "-", "--password-file", "-"}, "for both"},
      {{"venues", "--settings", missing}, "no such folder"},
      {{"venues", "--endpoint", "nowhere at all"}, "is not a valid URL"},
      {{"venues", "--password", "a", "--password-file", "-"}, "not both"},
      {{"venues", "--username", "a:b"}, "colon"},
      {{"serve", missing, "--port", "0"}, "missing"},
      {{"serve", bad, "--port", "0"}, "orivanta serve: " + bad + "/venue.json"},
      {{"serve", package, "--port", port}, "in use"},
      {{"serve", folder, "--port", "66000"}, "--port"},
      {{"serve", folder, "--port", "0", "--page-size", "0"}, "--page-size"},
      {{"serve", folder, "--port", "0", "--username", "me"}, "password"},
      {{"serve", package, "--port", "0", "--origin", "maps.example"}, "maps.example"},
      {{"serve", package, "--port", "0", "--origin", "http://h/path"}, "\"http://h/path\""},
      {{"serve", package, "--port", "0", "--trusted-proxy", "proxy"}, "proxy"},
      {{"serve", package, "--port", "0", "--allow-origin", "https://h/"}, "\"https://h/\""},
      {{"serve", package, "--port", "0", "--web", package}, package + ": the folder has no index"},
  };
  for (const Case& each : cases) {
    const ProgramResult result = run(each.arguments);
    EXPECT_EQ(result.exitCode, 2) << result.errors;
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(contains(result.errors, each.said)) << result.errors;
  }
}

TEST_F(Command, TakesThePasswordWithoutShowingIt) {
  const std::string file = folder_.write("password", "s3cret\n").string();
  const std::string wrong = folder_.write("wrong", "s3cret\n\n").string();
  const std::string refusal =
      server_.root() + "venue returned HTTP status 401: wrong user name or password";
  struct Case {
    std::vector<std::string> arguments;
    std::string input;
    int exitCode;
  };
  const std::vector<Case> cases = {
      {{"--username", "me", "--password", "s3cret", "venues"}, "", 0},
      {{"venues", "--username", "me", "--password-file", file}, "", 0},
      {{"--password-file", "-", "--username", "me", "venues"}, "s3cret\r\n", 0},
      {{"--password-file", "-", "--username", "me", "venues"}, "s3cret", 0},
      {{"venues", "--username", "me", "--password-file", wrong}, "", 3},
      {{"venues", "--username", "you", "--password", "s3cret"}, "", 3},
      {{"venues"}, "", 3},
  };
  for (const Case& each : cases) {
    const ProgramResult result =
        runProgram(each.arguments, {"ORIVANTA_ENDPOINT=" + server_.root()}, each.input);
    EXPECT_EQ(result.exitCode, each.exitCode) << result.errors;
    EXPECT_EQ(contains(result.errors, refusal), each.exitCode == 3) << result.errors;
    EXPECT_FALSE(contains(result.errors, "s3cret"));
  }
}

TEST_F(Command, AnswersABatchLineByLine) {
  Program program({"route", "small", "--batch", "-"}, environment());
  program.send("{\"id\":1,\"from\":[\"n1\"],\"to\":[\"n2\"]}\n");
  EXPECT_EQ(program.readLine(), "{\"id\":1,\"path\":[\"n1\",\"n2\"],\"weight\":3}\n");
  program.send("\n \t\r\nnonsense\r\n");
  EXPECT_EQ(program.readLine(), "{\"id\":null,\"error\":\"the line is not a JSON object\"}\n");
  std::string many;
  for (int i = 0; i < 1000; ++i)
    many += "{\"from\":[\"n1\"],\"to\":[\"n4\"]," + std::string(500, ' ') + "\"id\":0}\n";
  program.send(many);
  for (int i = 0; i < 1000; ++i)
    ASSERT_EQ(program.readLine(), "{\"id\":0,\"path\":null,\"weight\":null}\n");
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.output + result.errors, "");
  const auto file = folder_.write("batch", "{\"id\":7,\"fromLocation\":\"l1\",\"to\":[\"n1\"]}");
  EXPECT_EQ(run({"route", "small", "--batch", file.string()}).output,
            "{\"id\":7,\"path\":[\"n1\"],\"weight\":0}\n");
}

TEST_F(Command, SaysWhenItsOutputCannotBeWritten) {
  const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
  const ProgramResult result = Program({"venues"}, environment(), full).finish();
  close(full);
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_TRUE(contains(result.errors, "cannot write to standard output: No space"))
      << result.errors;
}

TEST_F(Command, EndsQuietlyWhenNobodyReads) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(pipe2(pipe.data(), O_CLOEXEC), 0);
  Program program({"venues"}, environment(), pipe[1]);
  close(pipe[0]);
  close(pipe[1]);
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, -SIGPIPE);
  EXPECT_EQ(result.errors, "");
}

// Reads what programs have written to a terminal whose other side is closed, and closes the
// terminal.
std::string readToEnd(int terminal) {
  std::string text;
  std::array<char, 4096> piece{};
  for (ssize_t count = 0; (count = ::read(terminal, piece.data(), piece.size())) > 0;)
    text.append(piece.data(), static_cast<std::size_t>(count));
  close(terminal);
  return text;
}

TEST_F(Command, ShowsProgressOnATerminalAndClearsIt) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_GE(terminal, 0);
  ASSERT_EQ(grantpt(terminal), 0);
  ASSERT_EQ(unlockpt(terminal), 0);
  const int side = open(ptsname(terminal), O_RDWR | O_NOCTTY | O_CLOEXEC);
  auto variables = environment();
  variables.insert(variables.begin(), "TERM=xterm");
  const ProgramResult result = Program({"venues"}, variables, -1, side).finish();
  close(side);
  const std::string shown = readToEnd(terminal);
  EXPECT_EQ(result.output, "small  Small Mall\n");
  EXPECT_TRUE(shown.starts_with("\r\033[KLoading: 0 of 1 collections")) << shown;
  EXPECT_TRUE(shown.ends_with("\r\033[K")) << shown;
}

TEST_F(Command, ServesUntilItIsInterrupted) {
  const std::string package = (folder_.path() / "package").string();
  const std::string password = folder_.write("password", "pw\n").string();
  for (const int signal : {SIGINT, SIGTERM}) {
    Program open(
        {"serve", package, "--port", "0", "--username", "him", "--password-file", password});
    const std::string line = open.readLine();
    const std::string root = line.substr(0, line.size() - 1);
    EXPECT_EQ(runProgram({"venues", "--endpoint", root}).exitCode, 3);
    EXPECT_EQ(runProgram({"venues", "--endpoint", root.substr(0, root.size() - 1), "--username",
                          "him", "--password", "pw"})
                  .output,
              "small  Small Mall\n");
    open.endWith(signal);
    EXPECT_EQ(open.finish().exitCode, 0);
  }
}

}  // namespace
}  // namespace orivanta::command

#include "Apps/Command/Serve.hpp"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "Apps/Server/VenueServer.hpp"
#include "Tests/Apps/Server/RawClient.hpp"
#include "Tests/Apps/Server/SmallPackage.hpp"

namespace orivanta::command {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

// A process that serves, with its standard output at hand.
class ServingProcess {
 public:
  explicit ServingProcess(const ServeOptions& options) {
    int ends[2];
    if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
    process_ = ::fork();
    if (process_ == 0) {
      ::dup2(ends[1], STDOUT_FILENO);
      ::close(ends[0]);
      ::close(ends[1]);
      ::_exit(serve(options));
    }
    ::close(ends[1]);
    output_ = ends[0];
  }
  ~ServingProcess() { ::close(output_); }

  // "" when the process ends without one.
  std::string readLine() const {
    std::string line;
    for (char character = 0; ::read(output_, &character, 1) == 1;) {
      if (character == '\n') return line;
      line += character;
    }
    return {};
  }

  int exitCodeAfter(int signal) const {
    ::kill(process_, signal);
    int status = 0;
    ::waitpid(process_, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t process_ = 0;
  int output_ = -1;
};

TEST(Serve, PrintsTheRootServesAndEndsOnASignal) {
  const test::TemporaryFolder root;
  test::writeSmallPackage(root, "demo", "demo");
  for (const int signal : {SIGINT, SIGTERM}) {
    ServeOptions options;
    options.demoVenue = root.path() / "demo";
    options.port = 0;
    const ServingProcess process(options);
    const std::string line = process.readLine();
    ASSERT_THAT(line, testing::MatchesRegex("http://127.0.0.1:[0-9]+/1/"));
    test::RawClient client(line);  // still connected when the signal comes
    client.send("GET /1/venue HTTP/1.1\r\n\r\n");
    EXPECT_THAT(client.read().body(), HasSubstr("\"slug\":\"demo\""));
    EXPECT_EQ(process.exitCodeAfter(signal), 0);
  }
}

TEST(Serve, WhatCannotBeServedIsSaidInOneLine) {
  const test::TemporaryFolder root;
  test::writeSmallPackage(root, "good", "good");
  root.write("bad/venue.json", "{");
  const auto refusal = [](const ServeOptions& options) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_EQ(serve(options), 2);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    std::string line = testing::internal::GetCapturedStderr();
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    return line;
  };
  ServeOptions bad;
  bad.folders = {root.path() / "bad"};
  EXPECT_THAT(refusal(bad), AllOf(StartsWith("orivanta serve: "), HasSubstr("bad/venue.json")));

  server::ServerOptions first;
  first.folders = {root.path() / "good"};
  const server::VenueServer server(first);
  ServeOptions busy;
  busy.folders = first.folders;
  const std::string port = server.root().substr(server.root().rfind(':') + 1);
  busy.port = static_cast<std::uint16_t>(std::stoul(port));
  EXPECT_THAT(refusal(busy), AllOf(HasSubstr("127.0.0.1"), HasSubstr("in use")));
}

}  // namespace
}  // namespace orivanta::command

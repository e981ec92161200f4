// Reads two settings files, separated by a line "%%", for the API session. They must result in an
// endpoint and credentials that a request can contain, or in an error.
#include <cstdlib>
#include <string>
#include <string_view>

#include "Apps/Command/CommandError.hpp"
#include "Apps/Command/Settings.hpp"
#include "Fuzz/Fuzzer.hpp"
#include "Source/HttpSession.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::command {
namespace {

bool isVisibleAscii(std::string_view text) {
  return text.find_first_not_of(
             "!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
             "abcdefghijklmnopqrstuvwxyz{|}~") == std::string_view::npos;
}

void checkUsable(const ApiSettings& settings) {
  ORIVANTA_REQUIRE(settings.endpoint && isVisibleAscii(*settings.endpoint));
  const HttpSession session(*settings.endpoint, settings.username, settings.password, "en");
  ORIVANTA_REQUIRE(session.root && !session.root->host().empty());
  ORIVANTA_REQUIRE(settings.endpoint->ends_with('/'));
  ORIVANTA_REQUIRE(session.authString.starts_with("Basic "));
  ORIVANTA_REQUIRE(isVisibleAscii(session.authString.substr(6)));
  const auto venues = foundation::Url::parse("venue", *session.root);
  ORIVANTA_REQUIRE(venues && venues->host() == session.root->host());
}

void readSettings(std::string_view input) {
  static const test::TemporaryFolder folder;
  for (const char* const name : {"ORIVANTA_ENDPOINT", "ORIVANTA_USERNAME", "ORIVANTA_PASSWORD"})
    unsetenv(name);
  folder.write("a.plist", fuzz::takeUpTo("\n%%\n", input));
  folder.write("b.plist", input);
  ConnectionOptions options;
  options.settingsFolder = folder.path();
  try {
    checkUsable(resolveSettings(options));
  } catch (const CommandError& error) {
    ORIVANTA_REQUIRE(error.code == ExitCode::wrongUse);
  }
}

}  // namespace
}  // namespace orivanta::command

ORIVANTA_FUZZER(Settings, orivanta::command::readSettings)

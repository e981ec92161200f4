#include "Source/ApiSettings.hpp"

#include <gtest/gtest.h>

#include "Platform/Foundation/Bundle.hpp"
#include "Source/SettingSources.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta {
namespace {

std::string propertyList(const std::string& entries) {
  return R"(<plist version="1.0"><dict>)" + entries + "</dict></plist>";
}

TEST(ApiSettings, CredentialsInTheEndpointCountIfThereAreNoOthers) {
  using Text = std::optional<std::string>;
  struct {
    std::string endpoint;
    Text username, password;
    std::string keptEndpoint;
    Text usedUsername, usedPassword;
  } const cases[] = {
      {"http://u:p%40@h/1/", {}, {}, "http://h/1/", "u", "p@"},
      {"http://u@h/1/", {}, "q", "http://h/1/", "u", "q"},
      {"http://u:p@h/1/", {}, "q", "http://h/1/", "u", "q"},
      {"http://u:p@h/1/", "v", {}, "http://h/1/", "v", {}},
      {"http://u:p@h/1/", "", "", "http://h/1/", "", ""},
      {"http://h/1/", {}, {}, "http://h/1/", {}, {}},
      {"no URL@", {}, {}, "no URL@", {}, {}},
  };
  for (auto [endpoint, username, password, keptEndpoint, usedUsername, usedPassword] : cases) {
    takeCredentials(endpoint, username, password);
    EXPECT_EQ(endpoint, keptEndpoint);
    EXPECT_EQ(username, usedUsername);
    EXPECT_EQ(password, usedPassword);
  }
}

// Runs in a separate process, because the property lists are searched only once.
TEST(ApiSettingsDeathTest, TheFirstPropertyListWithATextWins) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto readSettings = [] {
    const test::TemporaryFolder folder;
    folder.write("1.plist", "damaged");
    folder.write("2.plist", propertyList("<key>OrivantaEndpoint</key><integer>7</integer>"
                                         "<key>OrivantaUsername</key><string/>"));
    folder.write("3.plist",
                 propertyList("<key>OrivantaEndpoint</key><string>http://u:p@h/1/</string>"
                              "<key>OrivantaUsername</key><string>late</string>"));
    foundation::setMainBundleFolder(folder.path());
    const bool right = settingFromPropertyLists("OrivantaEndpoint") == "http://u:p@h/1/" &&
                       settingFromPropertyLists("OrivantaUsername") == "" &&
                       !settingFromPropertyLists("OrivantaPassword");
    setApiSettings({.username = "given"});
    const HttpSession& session = APISession().ApiHttpSession;
    const bool used = session.root->absoluteString() == "http://h/1/" &&
                      session.authString == "Basic Z2l2ZW46";  // given:
    _exit(right && used ? 0 : 1);
  };
  EXPECT_EXIT(readSettings(), testing::ExitedWithCode(0), "");
}

TEST(ApiSettingsDeathTest, TheDefaultEndpointIsSecureAndReserved) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto readDefaults = [] {
    const test::TemporaryFolder folder;
    foundation::setMainBundleFolder(folder.path());
    const foundation::Url root = *APISession().ApiHttpSession.root;
    const bool right = root.scheme() == "https" && root.host().ends_with(".example") &&
                       root.path() == "/1/" &&
                       APISession().ApiHttpSession.authString == "Basic Og==";  // :
    _exit(right ? 0 : 1);
  };
  EXPECT_EXIT(readDefaults(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace orivanta

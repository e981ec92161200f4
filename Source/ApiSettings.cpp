#include "Source/ApiSettings.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <utility>

#include "Platform/Foundation/Bundle.hpp"
#include "Platform/Foundation/Languages.hpp"
#include "Platform/Foundation/PropertyList.hpp"

namespace orivanta {

const std::string DEFAULT_ORIVANTA_ENDPOINT = "https://api.orivanta.example/1/";

namespace {

// Never destroyed, like the session: loads may be under way when the process ends.
ApiSettings& applicationSettings() {
  static auto& settings = *new ApiSettings;
  return settings;
}

const std::vector<std::filesystem::path>& plistPaths() {
  static const auto& paths = *new auto(foundation::mainBundleFiles("plist"));
  return paths;
}

std::optional<std::string> setting(const std::optional<std::string>& given, const char* key) {
  return given ? given : settingFromPropertyLists(key);
}

WebApiSession makeSession(const ApiSettings& settings) {
  auto endpoint =
      setting(settings.endpoint, "OrivantaEndpoint").value_or(DEFAULT_ORIVANTA_ENDPOINT);
  auto username = setting(settings.username, "OrivantaUsername");
  auto password = setting(settings.password, "OrivantaPassword");
  takeCredentials(endpoint, username, password);
  const WebApiSession session(endpoint, username.value_or(""), password.value_or(""),
                              fmt::format("{}", fmt::join(foundation::preferredLanguages(), ", ")),
                              settings.observer, settings.loadBytes);
  return session.withLowestRate(settings.lowestRate.value_or(session.lowestRate()));
}

}  // namespace

std::optional<std::string> settingFromPropertyLists(const std::string& key) {
  for (const auto& path : plistPaths()) {
    const auto entries = foundation::readPropertyList(path);
    if (!entries) continue;
    const auto entry = entries->find(key);
    if (entry != entries->end() && entry->second) return entry->second;
  }
  return std::nullopt;
}

void takeCredentials(std::string& endpoint, std::optional<std::string>& username,
                     std::optional<std::string>& password) {
  const auto url = foundation::Url::parse(endpoint);
  const auto credentials = url ? url->credentials() : std::nullopt;
  if (!credentials) return;
  endpoint = url->withoutCredentials().absoluteString();
  if (username) return;
  username = credentials->first;
  if (!password) password = credentials->second;
}

void setApiSettings(ApiSettings settings) { applicationSettings() = std::move(settings); }

const WebApiSession& APISession() {
  static const auto& session = *new WebApiSession(makeSession(applicationSettings()));
  return session;
}

}  // namespace orivanta

#include "Source/ApiSettings.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <utility>

#include "Platform/Foundation/Languages.hpp"
#include "Source/SettingSources.hpp"

namespace orivanta {

const std::string DEFAULT_ORIVANTA_ENDPOINT = "https://api.orivanta.example/1/";

namespace {

// Never destroyed, like the session: loads may still be running when the process ends.
ApiSettings& applicationSettings() {
  static auto& settings = *new ApiSettings;
  return settings;
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
                              settings.observer, settings.loadBytes, settings.transport);
  return session.withLowestRate(settings.lowestRate.value_or(session.lowestRate()))
      .storingIn(settings.store)
      .fillingActiveVenue();
}

}  // namespace

void setApiSettings(ApiSettings settings) { applicationSettings() = std::move(settings); }

const WebApiSession& APISession() {
  static const auto& session = *new WebApiSession(makeSession(applicationSettings()));
  return session;
}

}  // namespace orivanta

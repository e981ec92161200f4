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

std::string setting(const std::optional<std::string>& given, const char* key,
                    const std::string& fallback) {
  if (given) return *given;
  return settingFromPropertyLists(key).value_or(fallback);
}

std::string getEndpoint() {
  return setting(applicationSettings().endpoint, "OrivantaEndpoint", DEFAULT_ORIVANTA_ENDPOINT);
}

std::string getUsername() {
  return setting(applicationSettings().username, "OrivantaUsername", "");
}

std::string getPassword() {
  return setting(applicationSettings().password, "OrivantaPassword", "");
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

void setApiSettings(ApiSettings settings) { applicationSettings() = std::move(settings); }

const WebApiSession& APISession() {
  static const auto& session =
      *new WebApiSession(getEndpoint(), getUsername(), getPassword(),
                         fmt::format("{}", fmt::join(foundation::preferredLanguages(), ", ")),
                         applicationSettings().observer, applicationSettings().loadBytes);
  return session;
}

}  // namespace orivanta

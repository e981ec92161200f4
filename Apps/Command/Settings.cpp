#include "Apps/Command/Settings.hpp"

#include <fmt/format.h>
#include <strings.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "Apps/Command/CommandError.hpp"
#include "Platform/Foundation/Bundle.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Source/ApiSettings.hpp"
#include "Source/SettingSources.hpp"
#include "Source/VenueStore.hpp"

namespace orivanta::command {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestPasswordBytes = 65536;

struct Setting {
  std::string value;
  std::string origin;  // for messages
};

std::optional<std::string> environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

std::optional<Setting> resolve(const std::optional<std::string>& given, const char* option,
                               const char* variable, const char* key) {
  if (given) return Setting{*given, option};
  if (auto value = environmentVariable(variable)) return Setting{std::move(*value), variable};
  if (auto value = settingFromPropertyLists(key))
    return Setting{std::move(*value), fmt::format("{} in a property list", key)};
  return std::nullopt;
}

// For messages. Text that is not a URL may also contain a password, with any characters.
std::string withoutCredentials(const std::string& text) {
  if (const auto url = foundation::Url::parse(text))
    return url->withoutCredentials().absoluteString();
  const std::size_t slashes = text.find("//");
  const std::size_t start = slashes == std::string::npos ? 0 : slashes + 2;
  const std::size_t at = text.rfind('@');
  return at == std::string::npos || at < start ? text : text.substr(0, start) + text.substr(at + 1);
}

void useSettingsFolder(const std::string& folder) {
  std::error_code failure;
  if (!fs::is_directory(folder, failure))
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("--settings: no such folder: \"{}\"", folder));
  foundation::setMainBundleFolder(folder);
}

std::string passwordFrom(std::istream& stream, const std::string& name) {
  std::string password(longestPasswordBytes + 1, '\0');
  stream.read(password.data(), static_cast<std::streamsize>(password.size()));
  password.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream.bad() || password.size() > longestPasswordBytes)
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("--password-file: cannot read a password from {}", name));
  if (password.ends_with('\n')) password.pop_back();
  if (password.ends_with('\r')) password.pop_back();
  return password;
}

}  // namespace

std::optional<std::string> givenPassword(const ConnectionOptions& options) {
  if (!options.passwordFile) return options.password;
  if (options.password)
    throw CommandError(ExitCode::wrongUse,
                       "specify either --password or --password-file, not both");
  if (*options.passwordFile == "-") return passwordFrom(std::cin, "standard input");
  std::ifstream file(*options.passwordFile, std::ios::binary);
  std::error_code failure;
  if (!file || fs::is_directory(*options.passwordFile, failure))
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("--password-file: cannot read \"{}\"", *options.passwordFile));
  return passwordFrom(file, *options.passwordFile);
}

std::string usableEndpoint(const std::string& text, const std::string& origin) {
  const auto url = foundation::Url::parse(text);
  const auto fail = [&](const char* reason) {
    throw CommandError(ExitCode::wrongUse, fmt::format("the endpoint \"{}\" ({}) {}",
                                                       withoutCredentials(text), origin, reason));
  };
  if (!url) fail("is not a valid URL");
  const std::string scheme = url->scheme();
  if (strcasecmp(scheme.c_str(), "http") != 0 && strcasecmp(scheme.c_str(), "https") != 0)
    fail("does not begin with http:// or https://");
  if (url->host().empty()) fail("has no host");
  if (text.find_first_of("?#") != std::string::npos) fail("has a query or a fragment");
  return text.ends_with('/') ? text : text + '/';
}

bool isEndpointGiven(const ConnectionOptions& options) {
  return options.endpoint || environmentVariable("ORIVANTA_ENDPOINT") ||
         settingFromPropertyLists("OrivantaEndpoint");
}

ApiSettings resolveSettings(const ConnectionOptions& options) {
  if (options.settingsFolder) useSettingsFolder(*options.settingsFolder);
  const Setting endpoint =
      resolve(options.endpoint, "--endpoint", "ORIVANTA_ENDPOINT", "OrivantaEndpoint")
          .value_or(Setting{DEFAULT_ORIVANTA_ENDPOINT, "the default"});
  const auto username =
      resolve(options.username, "--username", "ORIVANTA_USERNAME", "OrivantaUsername");
  const auto password =
      resolve(givenPassword(options), "--password", "ORIVANTA_PASSWORD", "OrivantaPassword");
  if (options.offline && options.noStore)
    throw CommandError(ExitCode::wrongUse, "specify either --offline or --no-store, not both");
  ApiSettings settings;
  if (!options.noStore) settings.store = VenueStore::inCachesDirectory();
  settings.endpoint = usableEndpoint(endpoint.value, endpoint.origin);
  if (username) settings.username = username->value;
  if (password) settings.password = password->value;
  takeCredentials(*settings.endpoint, settings.username, settings.password);
  settings.username = settings.username.value_or("");
  settings.password = settings.password.value_or("");
  if (settings.username->find(':') != std::string::npos)
    throw CommandError(ExitCode::wrongUse,
                       fmt::format("the user name ({}) must not contain a colon",
                                   username ? username->origin : endpoint.origin));
  return settings;
}

}  // namespace orivanta::command

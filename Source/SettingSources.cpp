#include "Source/SettingSources.hpp"

#include <filesystem>
#include <vector>

#include "Platform/Foundation/Bundle.hpp"
#include "Platform/Foundation/PropertyList.hpp"
#include "Platform/Foundation/Url.hpp"

namespace orivanta {

namespace {

// Never destroyed: settings may be read while the process ends.
const std::vector<std::filesystem::path>& plistPaths() {
  static const auto& paths = *new auto(foundation::mainBundleFiles("plist"));
  return paths;
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

}  // namespace orivanta

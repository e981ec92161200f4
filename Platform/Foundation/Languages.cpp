#include "Platform/Foundation/Languages.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>

namespace orivanta::foundation {

namespace {

// "sr_RS.UTF-8@latin": the language comes before the encoding and the modifier.
std::string languageTag(std::string_view locale) {
  std::string tag(locale.substr(0, locale.find_first_of(".@")));
  std::replace(tag.begin(), tag.end(), '_', '-');
  const bool wellFormed = !tag.empty() && std::isalpha(static_cast<unsigned char>(tag.front())) &&
                          std::all_of(tag.begin(), tag.end(), [](unsigned char character) {
                            return character < 128 && (std::isalnum(character) || character == '-');
                          });
  if (!wellFormed || tag == "C" || tag == "POSIX") return {};
  return tag;
}

}  // namespace

std::vector<std::string> preferredLanguages() {
  std::vector<std::string> tags;
  for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value == nullptr) continue;
    std::string_view rest = value;
    while (!rest.empty()) {
      const std::string_view locale = rest.substr(0, rest.find(':'));
      rest.remove_prefix(std::min(rest.size(), locale.size() + 1));
      std::string tag = languageTag(locale);
      if (!tag.empty() && std::find(tags.begin(), tags.end(), tag) == tags.end())
        tags.push_back(std::move(tag));
    }
  }
  if (tags.empty()) tags.emplace_back("en");
  return tags;
}

}  // namespace orivanta::foundation

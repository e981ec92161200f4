#include "Apps/Import/Read/Osm/OsmLanguage.hpp"

#include <algorithm>
#include <map>
#include <string_view>

#include "Apps/Import/Read/Osm/OsmValues.hpp"

namespace orivanta::importer {

namespace {

// Countries where most signs are in one language.
struct Country {
  std::string_view code;
  std::string_view dialing;
  std::string_view language;
};

constexpr Country countries[] = {
    {"AT", "+43", "de"},  {"AU", "+61", "en"},  {"BR", "+55", "pt"},  {"CN", "+86", "zh"},
    {"CZ", "+420", "cs"}, {"DE", "+49", "de"},  {"DK", "+45", "da"},  {"EG", "+20", "ar"},
    {"ES", "+34", "es"},  {"FI", "+358", "fi"}, {"FR", "+33", "fr"},  {"GB", "+44", "en"},
    {"GR", "+30", "el"},  {"HU", "+36", "hu"},  {"IE", "+353", "en"}, {"IL", "+972", "he"},
    {"IT", "+39", "it"},  {"JP", "+81", "ja"},  {"KR", "+82", "ko"},  {"LI", "+423", "de"},
    {"MX", "+52", "es"},  {"NL", "+31", "nl"},  {"NO", "+47", "nb"},  {"NZ", "+64", "en"},
    {"PL", "+48", "pl"},  {"PT", "+351", "pt"}, {"RO", "+40", "ro"},  {"RU", "+7", "ru"},
    {"SA", "+966", "ar"}, {"SE", "+46", "sv"},  {"TR", "+90", "tr"},  {"TW", "+886", "zh"},
    {"UA", "+380", "uk"}, {"US", "+1", "en"},
};

using Votes = std::map<std::string, int>;

void voteByNames(const OsmTags& tags, Votes& votes) {
  if (!tags.has("name")) return;
  for (const auto& [language, name] : translations(tags, "name"))
    if (!language.empty() && name == tags["name"]) ++votes[language];
}

void voteByCountry(const OsmTags& tags, Votes& votes) {
  for (const Country& country : countries)
    if (tags.is("addr:country", country.code)) votes[std::string(country.language)] += 3;
  const std::string phone = firstOf(tags, {"phone", "contact:phone"});
  for (const Country& country : countries)
    if (phone.starts_with(country.dialing)) ++votes[std::string(country.language)];
}

std::string winner(const Votes& votes) {
  const auto most = std::max_element(
      votes.begin(), votes.end(),
      [](const auto& first, const auto& second) { return first.second < second.second; });
  return most == votes.end() ? std::string() : most->first;
}

}  // namespace

std::string languageOf(const std::vector<OsmThing>& things) {
  Votes names;
  Votes places;
  for (const OsmThing& thing : things) {
    voteByNames(*thing.tags, names);
    voteByCountry(*thing.tags, places);
  }
  // Brands have the same name in many languages; then the country decides.
  std::string country = winner(places);
  std::string language = winner(names);
  if (language.empty()) return country;
  return names[language] <= names[country] ? country : language;
}

}  // namespace orivanta::importer

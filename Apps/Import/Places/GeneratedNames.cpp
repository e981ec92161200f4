#include "Apps/Import/Places/GeneratedNames.hpp"

#include "Apps/Import/Places/Categories.hpp"

namespace orivanta::importer {

namespace {

Names namesOf(const Category& category, std::string_view language) {
  Names names;
  names.generated = true;
  names.name = std::string(category.singular.front());
  const std::string_view tongue = language.substr(0, language.find('-'));
  for (std::size_t i = 0; i < categoryLanguages.size(); ++i) {
    names.byLanguage.emplace(categoryLanguages[i], category.singular[i]);
    if (categoryLanguages[i] == tongue) names.name = std::string(category.singular[i]);
  }
  return names;
}

}  // namespace

Names generatedName(std::string_view category, std::string_view language) {
  const CategoryMatch match = matchCategory(category);
  if (match.unknown.empty()) return namesOf(*match.category, language);
  Names names;
  names.generated = true;
  names.name = match.unknown;
  return names;
}

Names generatedName(ConnectorKind kind, std::string_view language) {
  return namesOf(categoryOf(kind), language);
}

void preferLanguage(const std::vector<std::string>& languages, Names& names) {
  for (const std::string& language : languages) {
    const auto found = names.byLanguage.find(language);
    if (found == names.byLanguage.end()) continue;
    names.name = found->second;
    return;
  }
  if (names.name.empty() && !names.byLanguage.empty()) {
    const auto english = names.byLanguage.find("en");
    names.name = (english == names.byLanguage.end() ? names.byLanguage.begin() : english)->second;
  }
}

}  // namespace orivanta::importer

#include "Apps/Viewer/Content/CategoryFit.hpp"

#include <algorithm>

#include "Source/Category.hpp"
#include "Source/Guidance/NameMatch.hpp"
#include "Source/Guidance/TextFolding.hpp"

namespace orivanta::viewer {

namespace {

std::string identifierForm(const std::string& identifier) {
  const auto isReadable = [](char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '-' ||
           letter == '_';
  };
  if (!std::all_of(identifier.begin(), identifier.end(), isReadable)) return {};
  const std::string form = searchForm(identifier);
  return form.starts_with("cat ") ? form.substr(4) : form;
}

Fit fitOfWords(const Words& own, const Words& typed) {
  Fit fit = Fit::words;
  for (const std::string& word : typed) {
    const auto isForm = [&](const std::string& each) { return isFormOf(each, word); };
    if (std::any_of(own.begin(), own.end(), isForm)) continue;
    if (!standsForWord(word) || !beginsAny(own, word)) return Fit::none;
    fit = Fit::beginnings;
  }
  return fit;
}

bool containsAll(const Words& own, const Words& words) {
  return !words.empty() && std::all_of(words.begin(), words.end(), [&](const std::string& word) {
    return std::any_of(own.begin(), own.end(), [&](const std::string& each) {
      return isFormOf(each, word) || (each.ends_with(word) && standsForWord(word));
    });
  });
}

}  // namespace

Words split(std::string_view text, char separator) {
  Words parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

bool beginsAny(const Words& words, std::string_view beginning) {
  return std::any_of(words.begin(), words.end(),
                     [&](const std::string& word) { return word.starts_with(beginning); });
}

CategoryForms formsOf(const Category& category) {
  return {identifierForm(category.id.value_or("")), searchForm(category.name.value_or(""))};
}

Fit fitOf(const CategoryForms& category, const std::string& form) {
  if (form.empty()) return Fit::none;
  if (form == category.identifier) return Fit::identifier;
  if (form == category.name) return Fit::name;
  const Words typed = split(form, ' ');
  return std::min(fitOfWords(split(category.name, ' '), typed),
                  fitOfWords(split(category.identifier, ' '), typed));
}

bool isNamedAfter(const CategoryForms& category, const std::string& form) {
  const Words words = split(form, ' ');
  return containsAll(split(category.name, ' '), words) ||
         containsAll(split(category.identifier, ' '), words);
}

}  // namespace orivanta::viewer

#include "Apps/Viewer/CategoryFit.hpp"

#include <algorithm>
#include <iterator>

#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Category.hpp"
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

// Returns whether a part of a word is long enough to stand for the word.
bool isClear(std::string_view part) {
  const auto first = foundation::firstCharacter(part).codePoint;
  if (first >= 0x0590 && first < 0x0900) return false;  // Hebrew, Arabic and related scripts
  std::size_t letters = 0;
  for (; !part.empty(); ++letters)
    part.remove_prefix(foundation::firstCharacter(part).bytes.size());
  return letters >= (first >= 0x2E80 && first < 0xAC00 ? 2U : 3U);  // kana and ideographs
}

// Returns whether a word is another one or its plural in English, German or French.
bool isFormOf(std::string_view word, std::string_view singular) {
  if (!word.starts_with(singular)) return false;
  word.remove_prefix(singular.size());
  if (word.empty()) return true;
  constexpr std::string_view endings[] = {"s", "es", "e", "n", "en", "er", "x"};
  return std::find(std::begin(endings), std::end(endings), word) != std::end(endings) &&
         isClear(singular);
}

Fit fitOfWords(const Words& own, const Words& typed) {
  Fit fit = Fit::words;
  for (const std::string& word : typed) {
    const auto isForm = [&](const std::string& each) { return isFormOf(each, word); };
    if (std::any_of(own.begin(), own.end(), isForm)) continue;
    if (!isClear(word) || !beginsAny(own, word)) return Fit::none;
    fit = Fit::beginnings;
  }
  return fit;
}

bool containsAll(const Words& own, const Words& words) {
  return !words.empty() && std::all_of(words.begin(), words.end(), [&](const std::string& word) {
    return std::any_of(own.begin(), own.end(), [&](const std::string& each) {
      return isFormOf(each, word) || (each.ends_with(word) && isClear(word));
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

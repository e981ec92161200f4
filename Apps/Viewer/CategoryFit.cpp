#include "Apps/Viewer/CategoryFit.hpp"

#include <algorithm>

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

bool isClearBeginning(std::string_view word) {
  const auto first = foundation::firstCharacter(word).codePoint;
  if (first >= 0x0590 && first < 0x0900) return false;  // Hebrew, Arabic and related scripts
  std::size_t letters = 0;
  for (; !word.empty(); ++letters)
    word.remove_prefix(foundation::firstCharacter(word).bytes.size());
  return letters >= (first >= 0x2E80 && first < 0xAC00 ? 2U : 3U);  // kana and ideographs
}

Fit fitOfWords(const Words& own, const Words& typed) {
  Fit fit = Fit::words;
  for (const std::string& word : typed) {
    if (std::find(own.begin(), own.end(), word) != own.end()) continue;
    if (!isClearBeginning(word) || !beginsAny(own, word)) return Fit::none;
    fit = Fit::beginnings;
  }
  return fit;
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

}  // namespace orivanta::viewer

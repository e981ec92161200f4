#include "Apps/Viewer/Content/KindNames.hpp"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "Source/Guidance/Kinds/SearchWords.hpp"

namespace orivanta::viewer {

namespace {

struct AllNames {
  Words toilets = searchWordsOf(PlaceKind::toilet);
  Words exits = searchWordsOf(PlaceKind::exit);
  Words entrances = searchWordsOf(PlaceKind::entrance);
  Words exitWords = wordsOf({&exits, &entrances});  // of the names of exits and entrances

 private:
  static Words wordsOf(std::initializer_list<const Words*> lists) {
    Words words;
    for (const Words* const names : lists)
      for (const std::string& name : *names)
        for (std::string& word : split(name, ' ')) words.push_back(std::move(word));
    return words;
  }
};

const AllNames& allNames() {
  static const AllNames names;
  return names;
}

}  // namespace

const Words& namesOf(NamedKind kind) {
  const AllNames& names = allNames();
  if (kind == NamedKind::toilet) return names.toilets;
  return kind == NamedKind::exit ? names.exits : names.entrances;
}

bool meanExits(const Words& words) {
  return std::all_of(words.begin(), words.end(),
                     [](const std::string& word) { return beginsAny(allNames().exitWords, word); });
}

bool isEmergencyExit(const CategoryForms& category) {
  return namesEmergencyExit(category.name) || namesEmergencyExit(category.identifier);
}

}  // namespace orivanta::viewer

#include "Apps/Viewer/KindNames.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/InterfaceTexts.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/Guidance/TextFolding.hpp"

namespace orivanta::viewer {

namespace {

std::string withoutSpaces(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  return text;
}

// The names in the messages of all languages.
struct AllNames {
  AllNames() {
    auto languages = guidance::Narrator::languages();
    std::stable_partition(languages.begin(), languages.end(),
                          [](const std::string& each) { return each == "en"; });
    for (const std::string& language : languages) {
      const guidance::InterfaceTexts texts(language);
      add(texts.text("interface.names.toilet"), toilets);
      add(texts.text("interface.names.exit"), exits);
      add(texts.text("interface.names.entrance"), entrances);
      add(texts.text("interface.names.emergencyExit"), emergencies);
    }
    for (std::string& name : emergencies) name = withoutSpaces(std::move(name));
    for (const Words* names : {&exits, &entrances})
      for (const std::string& name : *names)
        for (std::string& word : split(name, ' ')) exitWords.push_back(std::move(word));
  }

  static void add(const std::string& text, Words& names) {
    for (const std::string& name : split(text, ','))
      if (std::string form = searchForm(name); !form.empty()) names.push_back(std::move(form));
  }

  Words toilets;
  Words exits;
  Words entrances;
  Words emergencies;  // without spaces
  Words exitWords;    // the words of the names of exits and entrances
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
  const Words& names = allNames().emergencies;
  const std::string forms = withoutSpaces(category.name) + ' ' + withoutSpaces(category.identifier);
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    return forms.find(name) != std::string::npos;
  });
}

}  // namespace orivanta::viewer

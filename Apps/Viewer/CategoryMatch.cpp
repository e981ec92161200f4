#include "Apps/Viewer/CategoryMatch.hpp"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Apps/Viewer/CategoryFit.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr const char* toiletNames = "interface.names.toilet";
constexpr const char* exitNames = "interface.names.exit";
constexpr const char* emergencyNames = "interface.names.emergencyExit";

// Returns the search forms of the names in a message.
Words namesOf(const char* key, const guidance::InterfaceTexts& texts) {
  Words names;
  for (const std::string& name : split(texts.text(key), ',')) names.push_back(searchForm(name));
  names.erase(std::remove(names.begin(), names.end(), ""), names.end());
  return names;
}

// Returns whether the category, or one below it, has a place with nodes. Links may form a cycle.
bool hasPlaces(const std::shared_ptr<Category>& category) {
  std::vector<std::shared_ptr<Category>> found{category};
  std::set<std::shared_ptr<Category>> known{category};
  for (std::size_t i = 0; i < found.size(); ++i) {
    const auto each = found[i];
    for (const auto& reference : each->locations)
      if (const auto place = reference.lock(); place && !place->nodes.empty()) return true;
    for (const auto& reference : each->children)
      if (const auto child = reference.lock(); child && known.insert(child).second)
        found.push_back(child);
  }
  return false;
}

// The categories of a venue, prepared for comparison with texts.
class Categories {
 public:
  Categories(const Venue& venue, const guidance::InterfaceTexts& texts) : own_(texts) {
    for (const auto* language : {&own_, &english_}) {
      for (const std::string& name : namesOf(exitNames, *language))
        for (std::string& word : split(name, ' ')) exitWords_.push_back(std::move(word));
      for (const std::string& name : namesOf(emergencyNames, *language))
        emergencies_.push_back(withoutSpaces(name));
    }
    if (!venue.categories) return;
    for (const auto& category : *venue.categories) {
      Entry entry{category, formsOf(*category)};
      entry.isEmergencyExit = isEmergency(entry.forms.identifier) || isEmergency(entry.forms.name);
      entries_.push_back(std::move(entry));
    }
  }

  // Returns the category that best fits a search form, at least as well as `worst`.
  std::shared_ptr<Category> find(const std::string& form, Fit best, Fit worst) const {
    const Words words = split(form, ' ');
    if (words.empty()) return nullptr;
    const bool isAnyExit = std::all_of(words.begin(), words.end(), [this](const auto& word) {
      return beginsAny(exitWords_, word);
    });
    const Entry* found = nullptr;
    for (const Entry& entry : entries_) {
      if (isAnyExit && entry.isEmergencyExit) continue;
      const Fit fit = fitOf(entry.forms, form);
      if (fit < best || fit > worst) continue;
      if (fit == worst && found && found->forms.name.size() <= entry.forms.name.size()) continue;
      if (!hasPlaces(entry.category)) continue;
      found = &entry;
      worst = fit;
    }
    return found == nullptr ? nullptr : found->category;
  }

  // Returns the category that fits one of the names. A better fit decides before the order.
  std::shared_ptr<Category> findAny(const Words& names) const {
    for (const Fit fit : {Fit::identifier, Fit::name, Fit::words, Fit::beginnings})
      for (const std::string& name : names)
        if (auto found = find(name, fit, fit)) return found;
    return nullptr;
  }

  // Returns the names of a kind in the language of the texts and in English.
  Words kindNames(const char* key) const {
    Words names = namesOf(key, own_);
    for (std::string& name : namesOf(key, english_))
      if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(std::move(name));
    return names;
  }

 private:
  struct Entry {
    std::shared_ptr<Category> category;
    CategoryForms forms;
    bool isEmergencyExit = false;
  };

  static std::string withoutSpaces(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
  }

  bool isEmergency(const std::string& form) const {
    const std::string text = withoutSpaces(form);
    return std::any_of(emergencies_.begin(), emergencies_.end(), [&](const std::string& name) {
      return text.find(name) != std::string::npos;
    });
  }

  const guidance::InterfaceTexts& own_;
  const guidance::InterfaceTexts english_{"en"};
  Words exitWords_;
  Words emergencies_;  // the names of emergency exits, without spaces
  std::vector<Entry> entries_;
};

}  // namespace

std::shared_ptr<Category> categoryTyped(const Venue& venue, std::string_view typed,
                                        const guidance::InterfaceTexts& texts) {
  const std::string form = searchForm(typed);
  if (form.empty()) return nullptr;
  const Categories categories(venue, texts);
  if (auto found = categories.find(form, Fit::identifier, Fit::name)) return found;
  for (const char* key : {toiletNames, exitNames}) {
    Words names = categories.kindNames(key);
    const auto own = std::find(names.begin(), names.end(), form);
    if (own == names.end()) continue;
    std::rotate(names.begin(), own, names.end());
    if (auto found = categories.findAny(names)) return found;
  }
  return categories.find(form, Fit::words, Fit::beginnings);
}

std::shared_ptr<Category> categoryOfKind(const Venue& venue, const char* namesKey,
                                         const guidance::InterfaceTexts& texts) {
  const Categories categories(venue, texts);
  return categories.findAny(categories.kindNames(namesKey));
}

}  // namespace orivanta::viewer

#include "Apps/Viewer/Content/CategoryPlaces.hpp"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "Apps/Viewer/Content/KindNames.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

namespace {

// Collects the places of a category, at most `most`.
class PlaceCollector {
 public:
  PlaceCollector(const Category& category, std::size_t most)
      : most_(most), omits_(!isEmergency(category)) {
    std::vector<const Category*> categories{&category};
    std::unordered_set<const Category*> known{&category};
    for (std::size_t i = 0; i < categories.size() && result.places.size() < most_; ++i) {
      for (const auto& reference : categories[i]->locations) add(reference.lock());
      for (const auto& reference : categories[i]->children)
        if (const auto child = reference.lock(); child && known.insert(child.get()).second)
          if (!isLeftOut(*child)) categories.push_back(child.get());
    }
  }

  CategoryPlaces result;

 private:
  void add(const std::shared_ptr<Location>& place) {
    if (result.places.size() >= most_ || !place || place->nodes.empty()) return;
    if (!known_.insert(place.get()).second) return;
    const auto& own = place->categories;
    if (std::none_of(own.begin(), own.end(),
                     [this](const auto& each) { return each && isLeftOut(*each); }))
      result.places.push_back(place);
  }

  bool isLeftOut(const Category& category) {
    const bool isOne = omits_ && isEmergency(category);
    result.omitsExits = result.omitsExits || isOne;
    return isOne;
  }

  bool isEmergency(const Category& category) {
    const auto [entry, isNew] = emergencies_.try_emplace(&category, false);
    if (isNew) entry->second = isEmergencyExit(formsOf(category));
    return entry->second;
  }

  std::unordered_map<const Category*, bool> emergencies_;
  std::unordered_set<const Location*> known_;
  std::size_t most_;
  bool omits_;  // emergency exits
};

}  // namespace

CategoryPlaces placesOf(const Category& category) {
  return PlaceCollector(category, static_cast<std::size_t>(-1)).result;
}

bool hasPlaces(const Category& category) {
  return !PlaceCollector(category, 1).result.places.empty();
}

std::vector<std::shared_ptr<Category>> outermost(
    std::vector<std::shared_ptr<Category>> categories) {
  std::vector<std::shared_ptr<Category>> above = categories;
  std::unordered_set<std::shared_ptr<Category>> below;
  for (std::size_t i = 0; i < above.size(); ++i)
    for (const auto& reference : above[i]->children)
      if (auto child = reference.lock(); child && below.insert(child).second)
        above.push_back(std::move(child));
  std::erase_if(categories, [&](const auto& each) { return below.contains(each); });
  return categories;
}

}  // namespace orivanta::viewer

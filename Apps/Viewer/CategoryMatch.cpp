#include "Apps/Viewer/CategoryMatch.hpp"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "Source/Category.hpp"
#include "Source/Guidance/NameMatch.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::size_t leastBytes = 3;

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

// Identifiers without words, such as UUIDs, do not count.
bool isReadable(std::string_view identifier) {
  return std::all_of(identifier.begin(), identifier.end(), [](char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || letter == '-' ||
           letter == '_';
  });
}

NameMatch matchOf(const Category& category, const TypedText& typed) {
  const NameMatch name = typed.match(searchForm(category.name.value_or("")));
  const std::string id = category.id.value_or("");
  return isReadable(id) ? std::min(name, typed.match(searchForm(id))) : name;
}

}  // namespace

std::shared_ptr<Category> categoryTyped(const Venue& venue, std::string_view typed) {
  if (!venue.categories || searchForm(typed).size() < leastBytes) return nullptr;
  const TypedText text(typed);
  std::shared_ptr<Category> best;
  NameMatch bestMatch = NameMatch::inside;  // must be better
  for (const auto& category : *venue.categories) {
    const NameMatch match = matchOf(*category, text);
    const bool isBetter =
        match < bestMatch || (match == bestMatch && best &&
                              category->name.value_or("").size() < best->name.value_or("").size());
    if (!isBetter || !hasPlaces(category)) continue;
    best = category;
    bestMatch = match;
  }
  return best;
}

std::shared_ptr<Category> categoryOfKind(const Venue& venue,
                                         std::initializer_list<std::string_view> lists) {
  for (std::string_view list : lists)
    while (!list.empty()) {
      const std::string_view name = list.substr(0, list.find(','));
      if (auto found = categoryTyped(venue, name)) return found;
      list.remove_prefix(std::min(list.size(), name.size() + 1));
    }
  return nullptr;
}

}  // namespace orivanta::viewer

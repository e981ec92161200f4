#include "Apps/Viewer/CategoryMatch.hpp"

#include <algorithm>
#include <string>

#include "Source/Category.hpp"
#include "Source/Guidance/NameMatch.hpp"
#include "Source/Guidance/TextFolding.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

constexpr std::size_t leastBytes = 3;
constexpr int mostLevels = 8;  // of categories; links may form a cycle

bool hasPlaces(const Category& category, int levels = mostLevels) {
  for (const auto& reference : category.locations)
    if (const auto place = reference.lock(); place && !place->nodes.empty()) return true;
  if (levels == 0) return false;
  return std::any_of(category.children.begin(), category.children.end(), [&](const auto& each) {
    const auto child = each.lock();
    return child && hasPlaces(*child, levels - 1);
  });
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
    if (!isBetter || !hasPlaces(*category)) continue;
    best = category;
    bestMatch = match;
  }
  return best;
}

std::shared_ptr<Category> categoryOfKind(const Venue& venue,
                                         std::initializer_list<std::string_view> words) {
  for (const std::string_view word : words)
    if (auto found = categoryTyped(venue, word)) return found;
  return nullptr;
}

}  // namespace orivanta::viewer

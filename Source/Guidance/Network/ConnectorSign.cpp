#include "Source/Guidance/Network/ConnectorSign.hpp"

#include <algorithm>
#include <string_view>

#include "Source/Category.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::guidance {

namespace {

bool isNumbered(std::string_view name, std::string_view word) {
  if (word.empty() || !name.starts_with(word)) return false;
  name.remove_prefix(word.size());
  return name.size() > 1 && name.front() == ' ' &&
         std::all_of(name.begin() + 1, name.end(),
                     [](char character) { return character >= '0' && character <= '9'; });
}

// `find` returns the category with an identifier, or null.
template <class Find>
std::string signWith(const Vortex& connector, const Find& find) {
  if (hasGeneratedName(connector)) return {};
  std::string name = connector.name.value_or("");
  for (const RawData& identifier : connector._data["categories"].arrayValue()) {
    const Category* category = find(identifier.string().value_or(""));
    if (category != nullptr && isNumbered(name, category->name.value_or(""))) return {};
  }
  return name;
}

}  // namespace

std::string signOf(const Vortex& connector, const Venue& venue) {
  return signWith(connector, [&](const std::string& identifier) -> const Category* {
    if (!venue.categories) return nullptr;
    const auto found =
        std::find_if(venue.categories->begin(), venue.categories->end(),
                     [&](const auto& each) { return each->id.value_or("") == identifier; });
    return found == venue.categories->end() ? nullptr : found->get();
  });
}

ConnectorSigns::ConnectorSigns(const Venue& venue) {
  if (!venue.categories) return;
  for (const auto& category : *venue.categories)
    categories_.emplace(category->id.value_or(""), category.get());
}

std::string ConnectorSigns::signOf(const Vortex& connector) const {
  return signWith(connector, [&](const std::string& identifier) -> const Category* {
    const auto found = categories_.find(identifier);
    return found == categories_.end() ? nullptr : found->second;
  });
}

}  // namespace orivanta::guidance

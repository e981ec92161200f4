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

}  // namespace

ConnectorSigns::ConnectorSigns(const Venue& venue)
    : ConnectorSigns(venue.categories.value_or(std::vector<std::shared_ptr<Category>>())) {}

ConnectorSigns::ConnectorSigns(const std::vector<std::shared_ptr<Category>>& categories) {
  for (const auto& category : categories)
    categories_.emplace(category->id.value_or(""), category.get());
}

std::string ConnectorSigns::signOf(const Vortex& connector) const {
  if (hasGeneratedName(connector)) return {};
  std::string name = connector.name.value_or("");
  for (const RawData& identifier : connector._data["categories"].arrayValue()) {
    const auto category = categories_.find(identifier.string().value_or(""));
    if (category != categories_.end() && isNumbered(name, category->second->name.value_or("")))
      return {};
  }
  return name;
}

}  // namespace orivanta::guidance

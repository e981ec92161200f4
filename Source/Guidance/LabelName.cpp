#include "Source/Guidance/LabelName.hpp"

#include "Source/Category.hpp"
#include "Source/Guidance/Network/ConnectorSign.hpp"
#include "Source/Guidance/PlaceNames.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {

namespace {

std::string placeName(const Location& place) {
  if (!hasGeneratedName(place)) return place.name.value_or("");
  return place.categories.empty() ? "" : place.categories.front()->name.value_or("");
}

}  // namespace

LabelNames::LabelNames(const Venue& venue)
    : signs_(std::make_unique<const guidance::ConnectorSigns>(venue)) {}

LabelNames::~LabelNames() = default;

std::string LabelNames::of(const Location& place) const {
  const auto* const connector = dynamic_cast<const Vortex*>(&place);
  return connector != nullptr ? signs_->signOf(*connector) : placeName(place);
}

std::string labelName(const Venue& venue, const Location& place) {
  const auto* const connector = dynamic_cast<const Vortex*>(&place);
  return connector != nullptr ? guidance::ConnectorSigns(venue).signOf(*connector)
                              : placeName(place);
}

}  // namespace orivanta

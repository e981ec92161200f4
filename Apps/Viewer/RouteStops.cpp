#include "Apps/Viewer/RouteStops.hpp"

#include <algorithm>

#include "Apps/Viewer/Content/ShownName.hpp"
#include "Source/Guidance/LabelName.hpp"
#include "Source/Location.hpp"

namespace orivanta::viewer {

void RouteStops::setEnd(RouteEnd end, const std::shared_ptr<Location>& place) {
  between_.erase(std::remove(between_.begin(), between_.end(), place), between_.end());
  at(end) = {place};
}

void RouteStops::dropEnd(RouteEnd end, const std::shared_ptr<Location>& place) {
  if (at(end).place == place) at(end) = {};
}

void RouteStops::setNearest(NearestChoice nearest) {
  to_ = {.nearest = std::move(nearest)};
  between_.clear();
}

void RouteStops::swapEnds(const std::shared_ptr<Location>& found) {
  std::reverse(between_.begin(), between_.end());
  if (to_.nearest) to_ = {found};
  std::swap(from_, to_);
}

bool RouteStops::canAdd(const std::shared_ptr<Location>& place) const {
  return isComplete() && !to_.nearest && place != from_.place && place != to_.place &&
         std::find(between_.begin(), between_.end(), place) == between_.end();
}

void RouteStops::remove(std::size_t index) {
  between_.erase(between_.begin() + static_cast<std::ptrdiff_t>(index));
}

RouteStops RouteStops::movedTo(
    const std::function<std::shared_ptr<Location>(const std::shared_ptr<Location>&)>& find,
    const std::shared_ptr<Location>& found) const {
  RouteStops moved;
  moved.from_ = {find(from_.place)};
  moved.to_ = {find(to_.nearest ? found : to_.place)};
  for (const auto& place : between_)
    if (auto other = find(place)) moved.between_.push_back(std::move(other));
  return moved;
}

std::vector<guidance::Stop> RouteStops::list() const {
  std::vector<guidance::Stop> stops{stopAt(from_)};
  stops.insert(stops.end(), between_.begin(), between_.end());
  stops.push_back(stopAt(to_));
  return stops;
}

guidance::Stop RouteStops::stopAt(const End& end) {
  if (end.nearest) return end.nearest->stop;
  return end.position ? *end.position : guidance::Stop(end.place);
}

StopNames RouteStops::names(const Venue& venue, const guidance::InterfaceTexts& texts,
                            const std::shared_ptr<Location>& found) const {
  StopNames names{nameOf(from_, venue, texts), {}, nameOf(to_, venue, texts)};
  for (const auto& place : between_) names.between.push_back(shownName(venue, *place));
  if (to_.nearest && found && !labelName(venue, *found).empty())
    names.to = labelName(venue, *found);
  return names;
}

std::optional<std::string> RouteStops::nameOf(const End& end, const Venue& venue,
                                              const guidance::InterfaceTexts& texts) {
  if (end.nearest) return end.nearest->title;
  if (end.position) return texts.text("interface.route.here");
  return end.place ? std::optional(shownName(venue, *end.place)) : std::nullopt;
}

}  // namespace orivanta::viewer

#include "Apps/Web/Map/MapValues.hpp"

#include <algorithm>
#include <cmath>

#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

template <class List>
std::shared_ptr<Location> placeIn(const std::optional<List>& places, std::string_view id) {
  if (!places) return nullptr;
  const auto found = std::find_if(places->begin(), places->end(),
                                  [&](const auto& place) { return place->id == id; });
  return found == places->end() ? nullptr : *found;
}

}  // namespace

const json::value& memberOf(const json::value& value, const char* name) {
  static const json::value none;
  const auto* object = value.if_object();
  const auto* member = object != nullptr ? object->if_contains(name) : nullptr;
  return member != nullptr ? *member : none;
}

std::optional<double> numberOf(const json::value& value) {
  if (!value.is_number()) return std::nullopt;
  const auto number = value.to_number<double>();
  return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::string textOf(const json::value& value) {
  return value.is_string() ? std::string(value.get_string()) : std::string();
}

bool isTrue(const json::value& value) { return value.is_bool() && value.get_bool(); }

std::vector<double> numbersOf(const json::value& value) {
  std::vector<double> numbers;
  if (!value.is_array()) return numbers;
  for (const json::value& each : value.get_array()) {
    const auto number = numberOf(each);
    if (!number) return {};
    numbers.push_back(*number);
  }
  return numbers;
}

std::optional<graphics::Vector3> positionOf(const json::value& value) {
  const auto numbers = numbersOf(value);
  if (numbers.size() != 3) return std::nullopt;
  return graphics::Vector3{static_cast<float>(numbers[0]), static_cast<float>(numbers[1]),
                           static_cast<float>(numbers[2])};
}

std::optional<graphics::Color> colorOf(const json::value& value) {
  const auto numbers = numbersOf(value);
  if (numbers.size() != 4) return std::nullopt;
  const auto part = [&](std::size_t index) {
    return static_cast<float>(std::clamp(numbers[index], 0.0, 1.0));
  };
  return graphics::Color{part(0), part(1), part(2), part(3)};
}

CameraMotion motionOf(const json::value& value) {
  return isTrue(memberOf(value, "glide")) ? CameraMotion::glide : CameraMotion::atOnce;
}

std::shared_ptr<Map> floorOf(const LoadedVenue& venue, const json::value& value) {
  const auto index = numberOf(value);
  const auto& floors = *venue.venue().maps;
  if (!index || *index < 0 || *index >= static_cast<double>(floors.size())) return nullptr;
  return floors[static_cast<std::size_t>(*index)];
}

std::shared_ptr<Location> placeOf(const LoadedVenue& venue, const json::value& value) {
  if (!value.is_string()) return nullptr;
  const std::string_view id = value.get_string();
  if (auto place = placeIn(venue.venue().locations, id)) return place;
  return placeIn(venue.venue().vortices, id);
}

}  // namespace orivanta::web

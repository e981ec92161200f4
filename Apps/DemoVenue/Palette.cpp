#include "Apps/DemoVenue/Palette.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "Platform/Foundation/Fnv.hpp"

namespace orivanta::demo {

namespace {

struct CategoryColour {
  std::string_view category;
  unsigned hex;
};

constexpr std::array categoryColours = {
    CategoryColour{"shopping", 0xCFAE9E},    CategoryColour{"department", 0xA5677A},
    CategoryColour{"fashion", 0xDDA5A4},     CategoryColour{"jewellery", 0xE0BE93},
    CategoryColour{"shoes", 0xD39488},       CategoryColour{"bags", 0xE2B6A6},
    CategoryColour{"living", 0x9DB8A7},      CategoryColour{"books", 0xB2C2A2},
    CategoryColour{"tech", 0x8FB2B4},        CategoryColour{"beauty", 0xC6AECB},
    CategoryColour{"groceries", 0xA8BF7E},   CategoryColour{"food", 0xEFC287},
    CategoryColour{"restaurants", 0xE5A774}, CategoryColour{"sweets", 0xF3D3A6},
    CategoryColour{"bars", 0xC98B6B},        CategoryColour{"leisure", 0x8E9CCB},
    CategoryColour{"cinema", 0x6C7AB0},      CategoryColour{"gardens", 0x8FB57A},
    CategoryColour{"services", 0xA3B9CC},    CategoryColour{"facilities", 0xB9C4CE},
    CategoryColour{"transport", 0xE3C15E},   CategoryColour{"vehicles", 0xAEB7BD},
};

std::optional<Colour> colourOf(std::string_view category) {
  for (const CategoryColour& entry : categoryColours)
    if (entry.category == category) return colour(entry.hex);
  return std::nullopt;
}

}  // namespace

Colour mixed(Colour first, Colour second, double share) {
  const auto between = [share](double a, double b) { return a + (b - a) * share; };
  return {between(first.red, second.red), between(first.green, second.green),
          between(first.blue, second.blue)};
}

Colour categoryColour(const Plan& plan, std::string_view category) {
  std::optional<Colour> found = colourOf(category);
  while (!found && !category.empty()) {
    const auto entry =
        std::find_if(plan.categories.begin(), plan.categories.end(),
                     [&](const Category& candidate) { return candidate.id == category; });
    category = entry == plan.categories.end() ? std::string_view{} : entry->parent;
    found = colourOf(category);
  }
  return found.value_or(palette::plate);
}

Colour placeColour(const Plan& plan, const Place& place) {
  if (place.id == "great-astrolabe" || place.id == "tide-clock") return palette::brass;
  const double shade = static_cast<double>(foundation::Fnv::of(place.id) % 9U) / 8.0;
  return mixed(categoryColour(plan, place.category), colour(shade < 0.5 ? 0xFFFFFF : 0x5A4A48),
               std::abs(shade - 0.5) * 0.22);
}

}  // namespace orivanta::demo

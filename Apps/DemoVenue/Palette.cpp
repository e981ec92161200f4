#include "Apps/DemoVenue/Palette.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "Platform/Foundation/Fnv.hpp"

namespace orivanta::demo {

namespace {

struct CategoryColor {
  std::string_view category;
  unsigned hex;
};

constexpr std::array categoryColors = {
    CategoryColor{"shopping", 0xCFAE9E},    CategoryColor{"department", 0xA5677A},
    CategoryColor{"fashion", 0xDDA5A4},     CategoryColor{"jewelry", 0xE0BE93},
    CategoryColor{"shoes", 0xD39488},       CategoryColor{"bags", 0xE2B6A6},
    CategoryColor{"living", 0x9DB8A7},      CategoryColor{"books", 0xB2C2A2},
    CategoryColor{"tech", 0x8FB2B4},        CategoryColor{"beauty", 0xC6AECB},
    CategoryColor{"groceries", 0xA8BF7E},   CategoryColor{"food", 0xEFC287},
    CategoryColor{"restaurants", 0xE5A774}, CategoryColor{"sweets", 0xF3D3A6},
    CategoryColor{"bars", 0xC98B6B},        CategoryColor{"leisure", 0x8E9CCB},
    CategoryColor{"cinema", 0x6C7AB0},      CategoryColor{"gardens", 0x8FB57A},
    CategoryColor{"services", 0xA3B9CC},    CategoryColor{"facilities", 0xB9C4CE},
    CategoryColor{"transport", 0xE3C15E},   CategoryColor{"vehicles", 0xAEB7BD},
};

std::optional<Color> colorOf(std::string_view category) {
  for (const CategoryColor& entry : categoryColors)
    if (entry.category == category) return color(entry.hex);
  return std::nullopt;
}

}  // namespace

Color categoryColor(const Plan& plan, std::string_view category) {
  std::optional<Color> found = colorOf(category);
  while (!found && !category.empty()) {
    const auto entry =
        std::find_if(plan.categories.begin(), plan.categories.end(),
                     [&](const Category& candidate) { return candidate.id == category; });
    category = entry == plan.categories.end() ? std::string_view{} : entry->parent;
    found = colorOf(category);
  }
  return found.value_or(palette::plate);
}

Color placeColor(const Plan& plan, const Place& place) {
  if (place.id == "great-astrolabe" || place.id == "tide-clock") return palette::brass;
  const double shade = static_cast<double>(foundation::Fnv::of(place.id) % 9U) / 8.0;
  return mixed(categoryColor(plan, place.category), color(shade < 0.5 ? 0xFFFFFF : 0x5A4A48),
               std::abs(shade - 0.5) * 0.22);
}

}  // namespace orivanta::demo

#include "Apps/Import/Write/PlacePictures.hpp"

#include <fmt/format.h>

#include <string>
#include <utility>

#include "Apps/Package/Palette.hpp"
#include "Apps/Package/Sign.hpp"

namespace orivanta::importer {

namespace {

constexpr int width = 256;

// The symbols of categories that have none with their own name.
std::string_view symbolNameOf(std::string_view category) {
  constexpr std::pair<std::string_view, std::string_view> names[] = {
      {"shopping", "department"},
      {"kiosk", "groceries"},
      {"food", "restaurants"},
      {"care", "medical"},
      {"pharmacies", "first-aid"},
      {"nursing", "baby"},
      {"reception", "information"},
      {"toilets-men", "toilets"},
      {"toilets-women", "toilets"},
      {"toilets-accessible", "toilets"},
      {"post", "travel"},
      {"leisure", "play"},
      {"library", "books"},
      {"exits", "entrances"},
      {"emergency-exits", "entrances"},
      {"platforms", "station"},
      {"taxis", "vehicles"},
      {"parking", "vehicles"}};
  for (const auto& [name, symbol] : names)
    if (name == category) return symbol;
  return category;
}

std::string fileOf(std::string_view category) { return fmt::format("{}-{}.png", category, width); }

}  // namespace

boost::json::object pictureOf(const Category& category) {
  if (package::symbolOf(symbolNameOf(category.id)).empty()) return {};
  const std::string file = "images/places/" + fileOf(category.id);
  return {{"small", file}, {"original", file}};
}

void writeSigns(const boost::json::array& categories, const std::filesystem::path& folder) {
  for (const Category& category : allCategories()) {
    const boost::json::value id(fmt::format("cat-{}", category.id));
    const auto symbol = package::symbolOf(symbolNameOf(category.id));
    bool used = false;
    for (const boost::json::value& record : categories) used = used || record.at("id") == id;
    if (!used || symbol.empty()) continue;
    std::filesystem::create_directories(folder);
    package::makeSign(package::fillOf(category.kind), package::palette::text, symbol, width)
        .write(folder / fileOf(category.id));
  }
}

}  // namespace orivanta::importer

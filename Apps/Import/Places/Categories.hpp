// The categories of places, and which of them the values of all sources mean. The table is
// Resources/Categories/categories.json, which is compiled in.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Package/Palette.hpp"

namespace orivanta::importer {

/// The languages of the names of categories, in the order of `Category::names`.
inline constexpr std::array<std::string_view, 5> categoryLanguages = {"en", "de", "fr", "ja", "ar"};

/// A category of the importer's own table.
struct Category {
  std::string_view id;      ///< such as "toilets-men"
  std::string_view parent;  ///< identifier of a category; empty for a top-level one
  std::string_view type;    ///< of its locations: "tenant", "room", "amenity" or "entrance"
  package::PlaceKind kind = package::PlaceKind::other;
  std::array<std::string_view, categoryLanguages.size()> names;
  std::array<std::string_view, categoryLanguages.size()> singular;  ///< what one of them is called
  std::vector<std::string_view> values;  ///< of sources that mean it, several separated by spaces

  /// The name in a language, such as "de" or "de-at"; English if there is none.
  std::string_view name(std::string_view language) const;
};

/// All categories, in the order of the table. Parents precede their children.
std::span<const Category> allCategories();

/// Throws `std::out_of_range` for an unknown identifier.
const Category& categoryWithId(std::string_view id);

/// The category of a kind of connector.
const Category& categoryOf(ConnectorKind kind);

/// What a value of a source means.
struct CategoryMatch {
  const Category* category = nullptr;  ///< the best that is known; never null
  /// What the table does not know of the value, in words such as "climbing hall". Empty if it knows
  /// the value. The place then belongs to a category of this name within `category`.
  std::string unknown;
};

/// Looks a value up. It is a tag of OpenStreetMap ("shop=clothes"), a category of IMDF with or
/// without the type of its feature ("unit:restroom.male"), a code of station networks ("B005") or a
/// word of IndoorGML ("stair"). Case does not matter. An empty value is a room.
CategoryMatch matchCategory(std::string_view value);

}  // namespace orivanta::importer

// The feature types and enumerations of IMDF 1.0 (OGC 20-094).
#pragma once

#include <string_view>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Whether it is one of the 16 feature types.
bool isImdfType(std::string_view type);

/// Whether the standard gives the property to features of some type.
bool isImdfProperty(std::string_view key);

/// Whether features of this type have a category from a list that `isImdfCategory` knows.
bool hasKnownCategories(std::string_view type);

/// Whether a feature of this type may have the category.
bool isImdfCategory(std::string_view type, std::string_view category);

/// What a unit of this category is.
AreaKind kindOfUnit(std::string_view category);

/// The part of a category before the first dot: "restroom" of "restroom.female".
std::string_view baseOf(std::string_view category);

}  // namespace orivanta::importer

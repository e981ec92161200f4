// The places to which the nearest one of a category may be.
#pragma once

#include <memory>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::viewer {

/// The places with nodes of a category and of the categories below it. Emergency exits are left out
/// unless it is a category of emergency exits itself.
struct CategoryPlaces {
  guidance::PlaceList places;
  bool omitsExits = false;  ///< whether emergency exits were left out
};

/// Returns the places of a category. Links between categories may form a cycle.
CategoryPlaces placesOf(const Category& category);

/// Returns whether a category has such places.
bool hasPlaces(const Category& category);

/// Returns those of several categories that are not below another one of them.
std::vector<std::shared_ptr<Category>> outermost(std::vector<std::shared_ptr<Category>> categories);

}  // namespace orivanta::viewer

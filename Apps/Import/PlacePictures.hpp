// The pictures of places: one sign for each category.
#pragma once

#include <boost/json/object.hpp>
#include <filesystem>
#include <set>
#include <string>

#include "Apps/Import/Categories.hpp"

namespace orivanta::importer {

/// The member "picture" of the places of a category; empty if it has no sign.
boost::json::object pictureOf(const Category& category);

}  // namespace orivanta::importer

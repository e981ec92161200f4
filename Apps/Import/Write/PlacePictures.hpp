// The pictures of places: one sign for each category.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <filesystem>

#include "Apps/Import/Places/Categories.hpp"

namespace orivanta::importer {

/// The member "picture" of the places of a category; empty if it has no sign.
boost::json::object pictureOf(const Category& category);

/// Writes the signs of these categories (records of category.json) into the folder, which must
/// exist.
void writeSigns(const boost::json::array& categories, const std::filesystem::path& folder);

}  // namespace orivanta::importer

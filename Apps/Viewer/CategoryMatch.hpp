// Finds the categories whose nearest place the user may want.
#pragma once

#include <initializer_list>
#include <memory>
#include <string_view>

#include "Source/Fwd.hpp"

namespace orivanta::viewer {

/// Returns the category whose name or identifier best matches a typed text, or null if none does.
/// Texts of fewer than three bytes match nothing. The category, or one below it, has a place with
/// nodes. The venue must be loaded.
std::shared_ptr<Category> categoryTyped(const Venue& venue, std::string_view typed);

/// Returns the category that matches the first possible name of several lists of names, which are
/// separated by commas. Otherwise the same.
std::shared_ptr<Category> categoryOfKind(const Venue& venue,
                                         std::initializer_list<std::string_view> lists);

}  // namespace orivanta::viewer

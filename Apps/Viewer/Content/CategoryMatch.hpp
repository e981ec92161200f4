// Finds the categories whose nearest place the user may want.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Apps/Viewer/Content/KindNames.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::viewer {

/// The categories of a kind: one that has the kind's name, such as "Toilets", or at most three
/// whose names contain it, such as "Men's toilets" and "Women's toilets".
struct KindCategories {
  std::vector<std::shared_ptr<Category>> categories;  ///< in the order of the venue
  bool isWholeKind = false;                           ///< whether it is one with the kind's name
};

/// Returns the categories of a kind, none of which is below another one. The kind's name may be in
/// any language of the library, in the category's name or in an English identifier. Each category
/// has places, see `placesOf`, and is not one of emergency exits. The venue must be loaded.
KindCategories categoriesOfKind(const Venue& venue, NamedKind kind);

/// Returns the categories that a typed text means. The best match is an identifier in English
/// (without "cat-") or a name that equals the text. If the text is the name of a kind, its
/// categories are returned: "entrance" never means exits. Otherwise the result is the category with
/// each typed word in its name or identifier, or else the one with words that begin so, see
/// `fitOf`; of several, the one with the shortest name.
///
/// A text of words for exits never means emergency exits. Each category has places, see `placesOf`.
/// The venue must be loaded.
std::vector<std::shared_ptr<Category>> categoriesTyped(const Venue& venue, std::string_view typed);

}  // namespace orivanta::viewer

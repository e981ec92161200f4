// Finds the categories whose nearest place the user may want.
#pragma once

#include <memory>
#include <string_view>

#include "Source/Fwd.hpp"
#include "Source/Guidance/InterfaceTexts.hpp"

namespace orivanta::viewer {

/// Returns the category that a typed text means, or null if there is none. The best match is an
/// identifier in English (without "cat-") or a name that equals the text. If the text is one of the
/// names of toilets or exits ("interface.names.*"), `categoryOfKind` follows. Then come categories
/// whose name or identifier has each typed word, and at last those with words that begin so: with
/// at least three letters, two in Japanese and Chinese; never in Arabic and Hebrew, where another
/// ending is often another word. Of several, the one with the shortest name is returned.
///
/// A text of words for exits never means emergency exits. Each result, or a category below it, has
/// a place with nodes. The venue must be loaded.
std::shared_ptr<Category> categoryTyped(const Venue& venue, std::string_view typed,
                                        const guidance::InterfaceTexts& texts);

/// Returns the category that the names of a message mean, in its language and in English, or null.
/// The message is "interface.names.toilet" or "interface.names.exit". Otherwise as above; the names
/// are tried in their order.
std::shared_ptr<Category> categoryOfKind(const Venue& venue, const char* namesKey,
                                         const guidance::InterfaceTexts& texts);

}  // namespace orivanta::viewer

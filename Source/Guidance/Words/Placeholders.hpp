// Placeholders of messages: names in braces, such as {place}. There are no format specifications
// and no escaped braces, so a message from any file can be formatted safely.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Result.hpp"

namespace orivanta::guidance {

/// Returns the names in braces of a text in ascending order. Fails if a brace has no partner, a
/// name has other characters than a to z, or there are more than 16.
foundation::Result<std::vector<std::string>> placeholdersOf(std::string_view text);

/// Checks the forms of a message. `original` has the forms of the same message in another language,
/// or is null. Fails if a placeholder is invalid or does not occur in the original, or if a message
/// with plural forms does not have `pluralForms` of them.
foundation::Result<void> checkMessage(const std::string& key, const std::vector<std::string>& forms,
                                      const std::vector<std::string>* original,
                                      std::size_t pluralForms);

}  // namespace orivanta::guidance

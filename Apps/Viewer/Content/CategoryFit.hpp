// How well a category matches a text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::viewer {

using Words = std::vector<std::string>;

/// Returns the parts of a text between separators, without empty ones.
Words split(std::string_view text, char separator);

/// Returns whether any of the words begins with a text.
bool beginsAny(const Words& words, std::string_view beginning);

/// The search forms of a category's name and identifier. The identifier is without "cat-"; it is
/// empty if it has no words, like a UUID.
struct CategoryForms {
  std::string identifier;
  std::string name;
};

/// Returns the search forms of a category.
CategoryForms formsOf(const Category& category);

/// The quality of a match; a smaller value is better.
enum class Fit {
  identifier,  ///< the text is the identifier
  name,        ///< the text is the name
  words,       ///< each word of the text, or its plural, is a word of the name or the identifier
  beginnings,  ///< each word of the text begins one, and is long enough to mean it
  none         ///< the text does not match
};

/// Returns how well a category matches a text in its search form. Beginnings of words, and words
/// with a plural ending, have at least three letters, two in Japanese and Chinese. In Arabic and
/// Hebrew they do not match, because another ending is often another word.
Fit fitOf(const CategoryForms& category, const std::string& form);

/// Returns whether the name or the identifier of a category contains each word of a text in its
/// search form, also in the plural or at the end of a compound: "toilets" and "Herrentoilette"
/// contain "toilette", but "toiletries" does not contain "toilet".
bool isNamedAfter(const CategoryForms& category, const std::string& form);

}  // namespace orivanta::viewer

// The nearest known word to one that was misspelled.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::command {

/// Returns the first known word that begins with the word if that has three characters or more;
/// otherwise the known word with the fewest inserted, deleted, replaced and swapped characters, the
/// first of several. Returns an empty text if none is similar: more than one difference per three
/// characters. Compares bytes, without regard to the case of ASCII letters.
std::string closestWord(std::string_view word, const std::vector<std::string>& known);

/// Returns " Did you mean ...?" with the closest word in quotes, or an empty text if none is
/// similar.
std::string didYouMean(std::string_view word, const std::vector<std::string>& known);

}  // namespace orivanta::command

// The known word that a misspelled one means.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::command {

/// Returns " Did you mean ...?" with the first known word that begins with the word or, if there is
/// none, that begins with it except for one or two letters. Returns an empty text if there is none,
/// or if the word has fewer than three letters.
std::string didYouMean(std::string_view word, const std::vector<std::string>& known);

}  // namespace orivanta::command

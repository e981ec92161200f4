// The built-in tables of words for kinds of places. They are the files in Resources/Words.
// Private header.
#pragma once

#include <string_view>
#include <vector>

namespace orivanta {

/// A row of a table.
struct WordRow {
  std::vector<std::string_view> heading;  ///< its words, such as "facility" and "lift"
  std::vector<std::string_view> words;    ///< may consist of several words
};

/// Returns the rows of the built-in file "name.txt". The texts live as long as the process. Stops
/// the program if there is no such file. Any thread.
///
/// A heading is a line that does not begin with a blank. The lines after it that do contain the
/// words of the row, separated by commas. Empty lines and those that begin with "#" are ignored.
std::vector<WordRow> wordTable(std::string_view name);

}  // namespace orivanta

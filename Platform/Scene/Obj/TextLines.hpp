// Reads the lines of a Wavefront text, and the words and numbers in them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orivanta::scene::obj {

constexpr bool isBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

inline void removeBlanks(std::string_view& line) {
  std::size_t count = 0;
  while (count < line.size() && isBlank(line[count])) ++count;
  line.remove_prefix(count);
}

std::string_view withoutBlanksAround(std::string_view text);

/// Iterates over the lines of a text, which must outlive this object.
class TextLines {
 public:
  explicit TextLines(std::string_view text);

  /// Returns the next line that is not blank, without surrounding white space, or an empty view at
  /// the end. A line that ends with a backslash continues on the next one. Comments are skipped.
  /// The result is valid until the next call.
  std::string_view next();

 private:
  std::string_view takeLine();
  std::string_view joined(std::string_view line);

  std::string_view text_;
  std::string joined_;
};

/// Removes the next word from the front and returns it; empty at the end.
std::string_view takeWord(std::string_view& line);

/// Removes the next word from the front and parses it as a number, independent of the locale.
/// Returns `missing` at the end of the line or before a comment, NaN if the word is not a number,
/// and infinity if the number exceeds single precision.
float takeNumber(std::string_view& line, float missing);

/// Removes the next word from the front if it equals `keyword`.
bool takeKeyword(std::string_view& line, std::string_view keyword);

}  // namespace orivanta::scene::obj

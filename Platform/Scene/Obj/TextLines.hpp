// The lines of a Wavefront text, and the words and numbers on them.
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

/// Goes through a text, which has to outlive it, line by line.
class TextLines {
 public:
  explicit TextLines(std::string_view text);

  /// The next line that holds anything, without blanks around it; empty at the end. A line that
  /// ends in a backslash goes on with the next one. Comments are passed over. Valid until the next
  /// call.
  std::string_view next();

 private:
  std::string_view takeLine();
  std::string_view joined(std::string_view line);

  std::string_view text_;
  std::string joined_;
};

/// Takes the next word off the front; empty at the end.
std::string_view takeWord(std::string_view& line);

/// Takes the next word off the front as a number, in any locale. `missing` at the end of the line
/// or before a comment, NaN for a word that is no number, infinity beyond single precision.
float takeNumber(std::string_view& line, float missing);

/// Takes a word off the front if it is this one.
bool takeKeyword(std::string_view& line, std::string_view keyword);

}  // namespace orivanta::scene::obj

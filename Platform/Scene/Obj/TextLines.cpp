#include "Platform/Scene/Obj/TextLines.hpp"

#include <algorithm>
#include <limits>

#include "Platform/Foundation/DecimalNumbers.hpp"

namespace orivanta::scene::obj {

std::string_view withoutBlanksAround(std::string_view text) {
  removeBlanks(text);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

TextLines::TextLines(std::string_view text) : text_(text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (text_.substr(0, byteOrderMark.size()) == byteOrderMark)
    text_.remove_prefix(byteOrderMark.size());
}

std::string_view TextLines::takeLine() {
  const std::size_t end = std::min(text_.find('\n'), text_.size());
  const std::string_view line = text_.substr(0, end);
  text_.remove_prefix(std::min(end + 1, text_.size()));
  return withoutBlanksAround(line);
}

std::string_view TextLines::next() {
  while (!text_.empty()) {
    const std::string_view line = takeLine();
    if (line.empty() || line.front() == '#') continue;
    if (line.back() != '\\') return line;
    if (const std::string_view whole = joined(line); !whole.empty()) return whole;
  }
  return {};
}

std::string_view TextLines::joined(std::string_view line) {
  joined_.clear();
  while (!line.empty() && line.back() == '\\') {
    joined_.append(line.substr(0, line.size() - 1)) += ' ';
    line = takeLine();
  }
  return withoutBlanksAround(joined_.append(line));
}

std::string_view takeWord(std::string_view& line) {
  removeBlanks(line);
  std::size_t length = 0;
  while (length < line.size() && !isBlank(line[length])) ++length;
  const std::string_view word = line.substr(0, length);
  line.remove_prefix(length);
  return word;
}

float takeNumber(std::string_view& line, float missing) {
  removeBlanks(line);
  if (line.empty() || line.front() == '#') return missing;
  if (line.front() == '+') line.remove_prefix(1);
  float number = 0.0F;
  const std::size_t length = foundation::readNumber(line, number);
  if (length > 0 && (length == line.size() || isBlank(line[length]))) {
    line.remove_prefix(length);
    return number;
  }
  takeWord(line);
  return std::numeric_limits<float>::quiet_NaN();
}

bool takeKeyword(std::string_view& line, std::string_view keyword) {
  const std::size_t length = keyword.size();
  if (line.substr(0, length) != keyword) return false;
  if (line.size() > length && !isBlank(line[length])) return false;
  line.remove_prefix(length);
  removeBlanks(line);
  return true;
}

}  // namespace orivanta::scene::obj

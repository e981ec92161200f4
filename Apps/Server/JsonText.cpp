#include "Apps/Server/JsonText.hpp"

#include <algorithm>
#include <boost/json/parse.hpp>
#include <boost/json/value.hpp>

namespace orivanta::server {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(whiteSpace), text.size()));
  return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
}

// Returns the position after the string whose opening quote is at `quote`.
std::size_t endOfText(std::string_view json, std::size_t quote) {
  std::size_t position = quote + 1;
  for (;;) {
    position = json.find_first_of("\"\\", position);
    if (json[position] == '"') return position + 1;
    position += 2;
  }
}

// Returns the position of the next comma, colon or closing bracket outside nested values.
std::size_t nextSeparator(std::string_view json, std::size_t position) {
  for (std::size_t depth = 0;;) {
    position = json.find_first_of("\"[]{},:", position);
    switch (json[position]) {
      case '"':
        position = endOfText(json, position);
        continue;
      case '[':
      case '{':
        ++depth;
        break;
      default:
        if (depth == 0) return position;
        if (json[position] == ']' || json[position] == '}') --depth;
    }
    ++position;
  }
}

}  // namespace

JsonKind jsonKind(std::string_view value) {
  switch (trimmed(value).front()) {
    case '{':
      return JsonKind::object;
    case '[':
      return JsonKind::array;
    case '"':
      return JsonKind::text;
    default:
      return JsonKind::other;
  }
}

std::vector<std::string_view> jsonElements(std::string_view array) {
  array = trimmed(array);
  std::vector<std::string_view> elements;
  for (std::size_t start = 1; start < array.size();) {
    const std::size_t end = nextSeparator(array, start);
    const std::string_view element = trimmed(array.substr(start, end - start));
    if (!element.empty()) elements.push_back(element);  // empty only for "[]"
    start = end + 1;
  }
  return elements;
}

std::vector<JsonMember> jsonMembers(std::string_view object) {
  object = trimmed(object);
  std::vector<JsonMember> members;
  for (std::size_t start = 1; start < object.size();) {
    const std::size_t colon = nextSeparator(object, start);
    if (object[colon] == '}') break;  // "{}"
    const std::size_t end = nextSeparator(object, colon + 1);
    const std::string_view key = trimmed(object.substr(start, colon - start));
    members.push_back(
        {jsonTextContent(key), key, trimmed(object.substr(colon + 1, end - colon - 1))});
    start = end + 1;
  }
  return members;
}

std::string jsonTextContent(std::string_view text) {
  text = trimmed(text);
  if (text.find('\\') == std::string_view::npos)
    return std::string(text.substr(1, text.size() - 2));
  const boost::json::value value = boost::json::parse(text);
  return std::string(value.get_string());
}

void appendCompactJson(std::string& output, std::string_view value) {
  value = trimmed(value);
  for (std::size_t position = 0; position < value.size();) {
    const std::size_t next = value.find_first_of("\" \t\r\n", position);
    output += value.substr(position, next - position);
    if (next == std::string_view::npos) return;
    position = next + 1;
    if (value[next] != '"') continue;
    position = endOfText(value, next);
    output += value.substr(next, position - next);
  }
}

}  // namespace orivanta::server

#include "Apps/Text/Json.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/serialize.hpp>
#include <cmath>

#include "Platform/Foundation/DisplayText.hpp"
#include "Platform/Foundation/TextControls.hpp"

namespace orivanta::text {

namespace json = boost::json;

namespace {

void append(std::string& text, const json::value& value) {
  if (value.is_double()) {
    text += std::isfinite(value.get_double()) ? jsonNumber(value.get_double()) : "null";
  } else if (value.is_array()) {
    const char* separator = "[";
    for (const json::value& element : value.get_array()) {
      text += separator;
      append(text, element);
      separator = ",";
    }
    text += value.get_array().empty() ? "[]" : "]";
  } else if (value.is_object()) {
    const char* separator = "{";
    for (const auto& [key, member] : value.get_object()) {
      text += separator + jsonString({key.data(), key.size()}) + ':';
      append(text, member);
      separator = ",";
    }
    text += value.get_object().empty() ? "{}" : "}";
  } else if (value.is_string()) {
    text += jsonString({value.get_string().data(), value.get_string().size()});
  } else {
    text += json::serialize(value);
  }
}

}  // namespace

std::string jsonNumber(double number) {
  if (std::isnan(number)) return "null";
  if (std::isinf(number)) return number > 0.0 ? "1e999" : "-1e999";
  return fmt::format("{}", number);
}

std::string jsonString(std::string_view text) {
  return withControlsEscaped(json::serialize(json::string_view(text.data(), text.size())));
}

std::string withControlsEscaped(std::string_view json) {
  const auto isPlain = [](char byte) { return static_cast<unsigned char>(byte) < 0x7F; };
  std::string text;
  text.reserve(json.size());
  while (!json.empty()) {
    const auto end = std::find_if_not(json.begin(), json.end(), isPlain);
    const auto plain = static_cast<std::size_t>(end - json.begin());
    text += json.substr(0, plain);
    json.remove_prefix(plain);
    if (json.empty()) break;
    const foundation::Character character = foundation::firstCharacter(json);
    const char32_t point =
        character.codePoint < 0 ? U'\uFFFD' : static_cast<char32_t>(character.codePoint);
    if (character.codePoint < 0 || foundation::isInvisibleControl(point) ||
        foundation::isTerminalControl(point))
      text += fmt::format("\\u{:04x}", static_cast<std::uint32_t>(point));
    else
      text += character.bytes;
    json.remove_prefix(character.bytes.size());
  }
  return text;
}

std::string jsonText(const json::value& value) {
  std::string text;
  append(text, value);
  return text;
}

}  // namespace orivanta::text

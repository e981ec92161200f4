#include "Apps/Command/Json.hpp"

#include <fmt/format.h>

#include <boost/json/serialize.hpp>
#include <cmath>

namespace orivanta::command {

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
  return json::serialize(json::string_view(text.data(), text.size()));
}

std::string jsonText(const json::value& value) {
  std::string text;
  append(text, value);
  return text;
}

}  // namespace orivanta::command

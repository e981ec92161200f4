#include "Apps/Package/Records.hpp"

#include <fmt/format.h>

#include <boost/json.hpp>
#include <iterator>
#include <string_view>
#include <utility>

namespace orivanta::package {

namespace json = boost::json;

namespace {

// Like `json::serialize`, but writes numbers in short decimal form.
void append(std::string& text, const json::value& value) {
  std::string_view separator;
  if (const auto* object = value.if_object()) {
    text += '{';
    for (const auto& member : *object) {
      text += std::exchange(separator, ",");
      text += json::serialize(json::value(member.key())) + ":";
      append(text, member.value());
    }
    text += '}';
  } else if (const auto* array = value.if_array()) {
    text += '[';
    for (const json::value& element : *array) {
      text += std::exchange(separator, ",");
      append(text, element);
    }
    text += ']';
  } else if (const auto* number = value.if_double()) {
    fmt::format_to(std::back_inserter(text), "{}", *number);
  } else {
    text += json::serialize(value);
  }
}

}  // namespace

std::string jsonLine(const json::value& value) {
  std::string text;
  append(text, value);
  return text;
}

std::string jsonLines(const json::array& records) {
  std::string text = "[\n";
  for (std::size_t i = 0; i < records.size(); ++i) {
    append(text, records[i]);
    text += i + 1 < records.size() ? ",\n" : "\n";
  }
  return text + "]\n";
}

}  // namespace orivanta::package

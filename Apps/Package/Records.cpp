#include "Apps/Package/Records.hpp"

#include <algorithm>
#include <boost/json.hpp>
#include <string_view>
#include <utility>

#include "Apps/Package/Numbers.hpp"

namespace orivanta::package {

namespace json = boost::json;

namespace {

void appendString(std::string& text, std::string_view value) {
  const auto isPlain = [](char character) {
    return static_cast<unsigned char>(character) >= ' ' && character != '"' && character != '\\';
  };
  if (!std::all_of(value.begin(), value.end(), isPlain)) {
    text += json::serialize(json::string_view(value.data(), value.size()));
    return;
  }
  text += '"';
  text += value;
  text += '"';
}

// Like `json::serialize`, but writes numbers in short decimal form.
void append(std::string& text, const json::value& value) {
  std::string_view separator;
  if (const auto* object = value.if_object()) {
    text += '{';
    for (const auto& member : *object) {
      text += std::exchange(separator, ",");
      appendString(text, member.key());
      text += ':';
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
    appendNumber(text, *number);
  } else if (const auto* string = value.if_string()) {
    appendString(text, *string);
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
  RecordLines lines;
  for (const json::value& record : records) lines.add(record);
  return lines.finish();
}

void RecordLines::add(const json::value& record) {
  if (!std::exchange(isEmpty_, false)) text_ += ",\n";
  append(text_, record);
}

std::string RecordLines::finish() {
  text_ += isEmpty_ ? "]\n" : "\n]\n";
  return std::move(text_);
}

}  // namespace orivanta::package

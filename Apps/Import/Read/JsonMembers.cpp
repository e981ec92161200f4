#include "Apps/Import/Read/JsonMembers.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <cmath>

#include "Platform/Foundation/DecimalNumbers.hpp"

namespace orivanta::importer {

namespace json = boost::json;

namespace {

std::string textOf(const json::value& value) {
  if (value.is_string())
    return std::string(trimmed({value.get_string().data(), value.get_string().size()}));
  // Codes may be written as 4.0.
  if (value.is_double()) return fmt::format("{}", value.get_double());
  return value.is_number() || value.is_bool() ? json::serialize(value) : std::string();
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view whitespace = " \t\r\n\v\f";
  const std::size_t first = text.find_first_not_of(whitespace);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(whitespace) + 1 - first);
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& character : lower)
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  return lower;
}

std::optional<double> numberIn(std::string_view text) {
  std::string_view digits = trimmed(text);
  if (digits.starts_with('+')) digits.remove_prefix(1);
  double number = 0.0;
  const std::size_t length = foundation::readNumber(digits, number);
  if (length == 0 || length < digits.size() || !std::isfinite(number)) return std::nullopt;
  return number;
}

const json::value* memberOf(const json::object& object, std::string_view key) {
  const json::value* member = object.if_contains({key.data(), key.size()});
  return member == nullptr || member->is_null() ? nullptr : member;
}

std::string memberText(const json::object& object, std::string_view key) {
  const json::value* member = memberOf(object, key);
  return member == nullptr ? std::string() : textOf(*member);
}

std::optional<double> memberNumber(const json::object& object, std::string_view key) {
  return numberIn(memberText(object, key));
}

std::optional<bool> memberBool(const json::object& object, std::string_view key) {
  const json::value* member = memberOf(object, key);
  return member != nullptr && member->is_bool() ? std::optional(member->get_bool()) : std::nullopt;
}

const json::object* memberObject(const json::object& object, std::string_view key) {
  const json::value* member = memberOf(object, key);
  return member == nullptr ? nullptr : member->if_object();
}

const json::array* memberArray(const json::object& object, std::string_view key) {
  const json::value* member = memberOf(object, key);
  return member == nullptr ? nullptr : member->if_array();
}

std::vector<std::string> memberTexts(const json::object& object, std::string_view key) {
  std::vector<std::string> texts;
  if (const json::array* array = memberArray(object, key)) {
    for (const json::value& each : *array)
      if (std::string text = textOf(each); !text.empty()) texts.push_back(std::move(text));
  } else if (std::string text = memberText(object, key); !text.empty()) {
    texts.push_back(std::move(text));
  }
  return texts;
}

}  // namespace orivanta::importer

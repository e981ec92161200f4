#include "Source/UI/Style/ThemeMembers.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/string.hpp>
#include <boost/json/value.hpp>
#include <cmath>
#include <cstddef>
#include <utility>

namespace orivanta {

namespace json = boost::json;

namespace {

std::string_view viewOf(const json::string& text) { return {text.data(), text.size()}; }

}  // namespace

ThemeMembers::ThemeMembers(const json::object& object, std::string path, ThemeFindings& findings)
    : object_(object), path_(std::move(path)), findings_(findings) {}

ThemeMembers::~ThemeMembers() {
  for (const auto& member : object_) {
    const std::string_view key{member.key().data(), member.key().size()};
    if (!read_.contains(key)) findings_.unknown.push_back(path_ + std::string(key));
  }
}

const json::value* ThemeMembers::find(std::string_view key) {
  read_.emplace(key);
  return object_.if_contains({key.data(), key.size()});
}

void ThemeMembers::refuse(std::string_view key, std::string_view expected) {
  if (findings_.problem.empty())
    findings_.problem = fmt::format("{}{}: expected {}", path_, key, expected);
}

void ThemeMembers::text(std::string_view key, std::string& target) {
  const json::value* const value = find(key);
  if (value == nullptr) return;
  if (const auto* text = value->if_string(); text && !text->empty())
    target = viewOf(*text);
  else
    refuse(key, "a text");
}

void ThemeMembers::color(std::string_view key, graphics::Color& target) {
  const json::value* const value = find(key);
  if (value == nullptr) return;
  const auto* const text = value->if_string();
  if (const auto color = text ? graphics::Color::parse(viewOf(*text)) : std::nullopt)
    target = *color;
  else
    refuse(key, "a color such as \"#1546b8\"");
}

void ThemeMembers::number(std::string_view key, double& target, double least, double most) {
  const json::value* const value = find(key);
  if (value == nullptr) return;
  const double number = value->is_number() ? value->to_number<double>() : NAN;
  if (number >= least && number <= most)
    target = number;
  else
    refuse(key, fmt::format("a number from {} to {}", least, most));
}

void ThemeMembers::object(std::string_view key, const std::function<void(ThemeMembers&)>& read) {
  const json::value* const value = find(key);
  if (value == nullptr) return;
  if (const auto* object = value->if_object()) {
    ThemeMembers members(*object, fmt::format("{}{}.", path_, key), findings_);
    read(members);
  } else {
    refuse(key, "an object");
  }
}

bool ThemeMembers::objects(std::string_view key, const std::function<void(ThemeMembers&)>& read) {
  const json::value* const value = find(key);
  if (value == nullptr) return false;
  const auto* const array = value->if_array();
  if (array == nullptr) {
    refuse(key, "an array of objects");
    return false;
  }
  for (std::size_t i = 0; i < array->size(); ++i) {
    const std::string place = fmt::format("{}[{}]", key, i);
    if (const auto* object = (*array)[i].if_object()) {
      ThemeMembers members(*object, fmt::format("{}{}.", path_, place), findings_);
      read(members);
    } else {
      refuse(place, "an object");
      return false;
    }
  }
  return true;
}

void ThemeMembers::texts(std::string_view key,
                         const std::function<bool(std::string_view)>& accept) {
  const json::value* const value = find(key);
  if (value == nullptr) return;
  const auto* const array = value->if_array();
  if (array == nullptr) return refuse(key, "an array of words");
  for (std::size_t i = 0; i < array->size(); ++i) {
    const auto* const text = (*array)[i].if_string();
    if (text == nullptr || !accept(viewOf(*text))) refuse(fmt::format("{}[{}]", key, i), "a word");
  }
}

}  // namespace orivanta

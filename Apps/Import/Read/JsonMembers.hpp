// Reads the members of JSON objects from foreign sources, whose types may be wrong.
#pragma once

#include <boost/json/object.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::importer {

/// The text without the whitespace around it.
std::string_view trimmed(std::string_view text);

/// The ASCII letters in lower case.
std::string lowerCase(std::string_view text);

/// A number of any text that is one from beginning to end, whitespace around it aside. Never
/// infinite.
std::optional<double> numberIn(std::string_view text);

/// The member, or null if there is none or if it is null.
const boost::json::value* memberOf(const boost::json::object& object, std::string_view key);

/// A trimmed text, or a number or a boolean as text; empty for anything else.
std::string memberText(const boost::json::object& object, std::string_view key);

/// A number, or a text that is one.
std::optional<double> memberNumber(const boost::json::object& object, std::string_view key);

std::optional<bool> memberBool(const boost::json::object& object, std::string_view key);
const boost::json::object* memberObject(const boost::json::object& object, std::string_view key);
const boost::json::array* memberArray(const boost::json::object& object, std::string_view key);

/// The texts of an array, or a single text.
std::vector<std::string> memberTexts(const boost::json::object& object, std::string_view key);

}  // namespace orivanta::importer

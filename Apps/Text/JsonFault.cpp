#include "Apps/Text/JsonFault.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <boost/json/parser.hpp>

namespace orivanta::text {

namespace json = boost::json;

namespace {

constexpr std::size_t deepestNesting = 1000;  // that `RawData` reads

JsonFault faultAt(std::string_view text, std::size_t position, std::string reason) {
  const std::string_view before = text.substr(0, position);
  const auto lines = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
  return {std::move(reason), lines + 1, before.size() - (before.rfind('\n') + 1) + 1};
}

// Returns the position of a comma that ends a list, if the parser stopped at the bracket after it.
std::optional<std::size_t> trailingComma(std::string_view text, std::size_t position) {
  const std::size_t bracket = text.find_first_not_of(" \t\r\n", position);
  if (bracket == std::string_view::npos || (text[bracket] != ']' && text[bracket] != '}'))
    return std::nullopt;
  const std::size_t last = text.substr(0, bracket).find_last_not_of(" \t\r\n");
  if (last == std::string_view::npos || text[last] != ',') return std::nullopt;
  return last;
}

}  // namespace

std::string JsonFault::description() const {
  if (!line || !column) return reason;
  return fmt::format("{} at line {}, column {}", reason, *line, *column);
}

JsonFault jsonFault(std::string_view text) {
  json::parse_options options;
  options.max_depth = deepestNesting;
  json::parser parser({}, options);
  json::error_code error;
  const std::size_t position = parser.write_some(text.data(), text.size(), error);
  if (!error && position == text.size())
    return {parser.release().is_structured() ? "it contains a number outside the range of a double"
                                             : "neither an object nor an array",
            std::nullopt, std::nullopt};
  if (!error) return faultAt(text, position, "more than one value");
  if (const auto comma = trailingComma(text, position))
    return faultAt(text, *comma, "a comma before a closing bracket");
  return faultAt(text, position, error.message());
}

}  // namespace orivanta::text

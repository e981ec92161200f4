#include "Source/HttpLink.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Source/CollectionHelpers.hpp"

namespace orivanta {

namespace {

std::string trimmedOfBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::optional<std::string> parameter(const Link& link, const char* name) {
  const auto entry = link.parameters.find(name);
  return entry == link.parameters.end() ? std::nullopt : std::optional<std::string>(entry->second);
}

// Returns the text for the URI, then each parameter as name="value".
std::vector<std::string> renderedItems(std::string first,
                                       const Dictionary<std::string>& parameters) {
  std::vector<std::string> items{std::move(first)};
  for (const auto& [name, value] : parameters)
    items.push_back(fmt::format("{}=\"{}\"", name, value));
  return items;
}

}  // namespace

Link::Link(std::string linkUri, Dictionary<std::string> linkParameters)
    : uri(std::move(linkUri)), parameters(std::move(linkParameters)) {}

Link Link::fromHeader(std::string_view header) {
  const auto [uriPart, parameterParts] = takeFirst(separateBy(";")(header));
  Dictionary<std::string> parameters;
  for (const std::string& part : parameterParts) {
    const auto [name, value] = split("=")(part);
    parameters.insert({name, trim({'"', '"'})(value)});  // a repeated name keeps the first
  }
  return Link(trim({'<', '>'})(uriPart), std::move(parameters));
}

std::optional<std::string> Link::relationType() const { return parameter(*this, "rel"); }
std::optional<std::string> Link::reverseRelationType() const { return parameter(*this, "rev"); }
std::optional<std::string> Link::type() const { return parameter(*this, "type"); }

std::string Link::html() const {
  return fmt::format("<link {} />",
                     fmt::join(renderedItems(fmt::format("href=\"{}\"", uri), parameters), " "));
}

std::string Link::header() const {
  return fmt::format("{}", fmt::join(renderedItems(fmt::format("<{}>", uri), parameters), "; "));
}

bool operator==(const Link& left, const Link& right) {
  return left.uri == right.uri && left.parameters.size() == right.parameters.size() &&
         contains(left.parameters, right.parameters);
}

std::vector<Link> parseLinkHeader(std::string_view header) {
  std::vector<Link> parsed;
  for (const std::string& value : separateBy(",")(header))
    parsed.push_back(Link::fromHeader(value));
  return parsed;
}

std::function<std::vector<std::string>(std::string_view)> separateBy(std::string separator) {
  return [separator = std::move(separator)](std::string_view text) {
    std::vector<std::string> pieces;
    for (;;) {
      const std::size_t end = separator.empty() ? std::string_view::npos : text.find(separator);
      pieces.push_back(trimmedOfBlanks(text.substr(0, end)));
      if (end == std::string_view::npos) return pieces;
      text.remove_prefix(end + separator.size());
    }
  };
}

std::function<std::pair<std::string, std::string>(std::string_view)> split(std::string separator) {
  return [separator = std::move(separator)](std::string_view text) {
    const std::size_t end = text.find(separator);
    if (end == std::string_view::npos) return std::pair(std::string(text), std::string());
    return std::pair(std::string(text.substr(0, end)),
                     std::string(text.substr(end + separator.size())));
  };
}

std::function<std::string(std::string_view)> trim(std::pair<char, char> ends) {
  return [ends](std::string_view text) {
    if (text.empty() || text.front() != ends.first || text.back() != ends.second)
      return std::string(text);
    if (text.size() < 2) foundation::fatalError("Can't form Range with end < start");
    return std::string(text.substr(1, text.size() - 2));
  };
}

std::pair<std::string, std::vector<std::string>> takeFirst(const std::vector<std::string>& texts) {
  if (texts.empty()) return {};
  return {texts.front(), {texts.begin() + 1, texts.end()}};
}

std::vector<Link> links(const network::HttpUrlResponse& response) {
  const auto header = response.headerField("Link");
  if (!header) return {};
  std::vector<Link> found = parseLinkHeader(*header);
  if (!response.url) return found;
  for (Link& link : found)
    if (const auto url = foundation::Url::parse(link.uri, *response.url))
      link.uri = url->absoluteString();
  return found;
}

std::optional<Link> findLink(const network::HttpUrlResponse& response,
                             const Dictionary<std::string>& parameters) {
  for (Link& link : links(response))
    if (contains(link.parameters, parameters)) return std::move(link);
  return std::nullopt;
}

std::optional<Link> findLink(const network::HttpUrlResponse& response, std::string_view relation) {
  return findLink(response, Dictionary<std::string>{{"rel", std::string(relation)}});
}

}  // namespace orivanta

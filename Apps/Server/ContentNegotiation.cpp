#include "Apps/Server/ContentNegotiation.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "Platform/Foundation/AsciiCase.hpp"
#include "Platform/Foundation/Fnv.hpp"

namespace orivanta::server {

namespace {

// A header may be 16 KB long, but no language tag is longer than this (RFC 4647, section 4.4.1),
// and no reader needs so many languages.
constexpr std::size_t longestRange = 35;
constexpr std::size_t mostRanges = 64;

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  return text.substr(0, text.find_last_not_of(" \t") + 1);
}

// Removes the part before the separator from the front of the text and returns it.
std::string_view takePart(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view part = trimmed(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

// An element of a list such as "da, en-gb;q=0.8"; the weight is in thousandths.
struct Weighted {
  std::string value;  // in lower case
  int weight = 0;
};

// Accepts "0" to "1" with at most three decimals (RFC 9110, section 12.4.2).
std::optional<int> parseWeight(std::string_view text) {
  if (text.empty() || text.size() > 5 || (text[0] != '0' && text[0] != '1')) return std::nullopt;
  if (text.size() > 1 && text[1] != '.') return std::nullopt;
  int weight = (text[0] - '0') * 1000;
  int unit = 100;
  for (std::size_t position = 2; position < text.size(); ++position, unit /= 10) {
    if (text[position] < '0' || text[position] > '9') return std::nullopt;
    weight += (text[position] - '0') * unit;
  }
  return weight <= 1000 ? std::optional<int>(weight) : std::nullopt;
}

// Ignores elements with a malformed weight.
std::vector<Weighted> parseWeightedList(std::string_view header) {
  std::vector<Weighted> list;
  while (!header.empty()) {
    std::string_view element = takePart(header, ',');
    const std::string_view value = takePart(element, ';');
    std::optional<int> weight = 1000;
    while (!element.empty()) {
      const std::string_view parameter = takePart(element, ';');
      if (parameter.starts_with("q=") || parameter.starts_with("Q="))
        weight = parseWeight(parameter.substr(2));
    }
    if (!value.empty() && weight)
      list.push_back({foundation::asciiLowercased(std::string(value)), *weight});
  }
  return list;
}

std::optional<int> weightOf(const std::vector<Weighted>& list, std::string_view value) {
  for (const Weighted& element : list)
    if (element.value == value) return element.weight;
  return std::nullopt;
}

// Removes the last subtag and a preceding single-character subtag, which only introduces it.
void cutLastSubtag(std::string& tag) {
  tag.resize(tag.find('-') == std::string::npos ? 0 : tag.rfind('-'));
  if (tag.size() >= 2 && tag[tag.size() - 2] == '-') tag.resize(tag.size() - 2);
}

}  // namespace

bool acceptsGzip(std::string_view acceptEncoding) {
  const std::vector<Weighted> list = parseWeightedList(acceptEncoding);
  const std::optional<int> any = weightOf(list, "*");
  const int gzip =
      weightOf(list, "gzip").value_or(weightOf(list, "x-gzip").value_or(any.value_or(0)));
  return gzip > 0 && gzip >= weightOf(list, "identity").value_or(0);
}

bool acceptsHtml(std::string_view accept) {
  return weightOf(parseWeightedList(accept), "text/html").value_or(0) > 0;
}

std::vector<std::string> languagesToLookUp(std::string_view acceptLanguage) {
  std::vector<Weighted> ranges = parseWeightedList(acceptLanguage);
  std::stable_sort(ranges.begin(), ranges.end(), [](const Weighted& left, const Weighted& right) {
    return left.weight > right.weight;
  });
  std::erase_if(ranges, [](const Weighted& range) { return range.value.size() > longestRange; });
  if (ranges.size() > mostRanges) ranges.resize(mostRanges);
  std::vector<std::string> tags;
  for (Weighted& range : ranges) {
    if (range.weight == 0 || range.value.front() == '*') continue;
    for (std::string& tag = range.value; !tag.empty(); cutLastSubtag(tag))
      if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
  }
  return tags;
}

bool namesEntityTag(std::string_view ifNoneMatch, std::string_view entityTag) {
  while (!ifNoneMatch.empty()) {
    std::string_view candidate = takePart(ifNoneMatch, ',');
    if (candidate == "*") return true;
    if (candidate.starts_with("W/")) candidate.remove_prefix(2);
    if (candidate == entityTag) return true;
  }
  return false;
}

std::string entityTagOf(std::string_view bytes, std::string_view suffix) {
  return fmt::format("\"{:016x}-{:x}{}\"", foundation::Fnv::of(bytes), bytes.size(), suffix);
}

std::string gzipTag(std::string entityTag) {
  return entityTag.insert(entityTag.size() - 1, "-gzip");
}

}  // namespace orivanta::server

#include "Apps/Command/FindingTexts.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <boost/json/object.hpp>
#include <tuple>
#include <vector>

#include "Apps/Import/Report/Report.hpp"
#include "Apps/Text/Json.hpp"
#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

namespace json = boost::json;
using importer::Finding;

namespace {

constexpr std::size_t listed = 10;
constexpr std::array<std::string_view, 3> severities = {"info", "warning", "violation"};

std::string_view wordFor(importer::Severity severity) {
  return severities[static_cast<std::size_t>(severity)];
}

auto groupOf(const Finding& finding) {
  return std::tuple(-static_cast<int>(finding.severity), std::string_view(finding.rule));
}

using Iterator = std::vector<Finding>::const_iterator;

// The file and line, the storey and the record, each followed by two spaces.
std::string placeOf(const Finding& finding) {
  std::string place;
  if (!finding.file.empty()) place += finding.file;
  if (finding.line) place += fmt::format(":{}", *finding.line);
  if (!place.empty()) place += "  ";
  if (finding.level) place += fmt::format("level {}  ", *finding.level);
  if (!finding.source.empty()) place += finding.source + "  ";
  return place;
}

std::string line(std::size_t indentation, std::string_view text) {
  return std::string(indentation, ' ') + foundation::printable(text) + '\n';
}

std::string groupText(Iterator first, Iterator last) {
  const auto count = static_cast<std::size_t>(last - first);
  std::string text = line(0, fmt::format("{}: {}{}", wordFor(first->severity), first->rule,
                                         count == 1 ? "" : fmt::format(" ({})", count)));
  const auto areEqual = [&](std::string Finding::*member) {
    return std::all_of(first, last,
                       [&](const Finding& finding) { return finding.*member == (*first).*member; });
  };
  const bool sameEffect = areEqual(&Finding::effect);
  const bool sameAdvice = areEqual(&Finding::advice);
  for (auto finding = first; finding != last; ++finding) {
    if (static_cast<std::size_t>(finding - first) == listed) {
      text += line(2, fmt::format("and {} more; --json lists all", count - listed));
      break;
    }
    text += line(2, placeOf(*finding) + finding->message);
    if (!sameEffect) text += line(4, "Effect: " + finding->effect);
    if (!sameAdvice) text += line(4, "-> " + finding->advice);
  }
  if (sameEffect && !first->effect.empty()) text += line(2, "Effect: " + first->effect);
  if (sameAdvice && !first->advice.empty()) text += line(2, "-> " + first->advice);
  return text + '\n';
}

template <class Value>
json::value orNull(const std::optional<Value>& value) {
  return value ? json::value(*value) : json::value(nullptr);
}

json::value orNull(const std::string& text) {
  return text.empty() ? json::value(nullptr) : json::value(text);
}

json::object jsonOf(const Finding& finding, std::size_t number, std::string_view source) {
  using Coordinate = std::optional<double>;
  const auto& position = finding.position;
  return {{"source", json::string_view(source.data(), source.size())},
          {"number", number},
          {"severity",
           json::string_view(wordFor(finding.severity).data(), wordFor(finding.severity).size())},
          {"rule", finding.rule},
          {"id", orNull(finding.source)},
          {"file", orNull(finding.file)},
          {"line", orNull(finding.line)},
          {"field", orNull(finding.field)},
          {"level", orNull(finding.level)},
          {"map", orNull(finding.map)},
          {"x", orNull(position ? Coordinate(position->x) : std::nullopt)},
          {"y", orNull(position ? Coordinate(position->y) : std::nullopt)},
          {"message", finding.message},
          {"effect", orNull(finding.effect)},
          {"advice", orNull(finding.advice)}};
}

}  // namespace

std::string findingsText(const importer::Findings& findings, std::string_view source) {
  std::vector<Finding> all = findings.sorted();
  std::stable_sort(all.begin(), all.end(), [](const Finding& first, const Finding& second) {
    return groupOf(first) < groupOf(second);
  });
  std::string text;
  for (auto first = all.cbegin(); first != all.cend();) {
    const auto last = std::find_if(first, all.cend(), [&](const Finding& finding) {
      return groupOf(finding) != groupOf(*first);
    });
    text += groupText(first, last);
    first = last;
  }
  return text + line(0, fmt::format("{}: {}", source, importer::summaryOf(findings)));
}

std::string findingsJson(const importer::Findings& findings, std::string_view source) {
  std::string text;
  std::size_t number = 0;
  for (const Finding& finding : findings.sorted())
    text += text::jsonText(jsonOf(finding, ++number, source)) + '\n';
  return text;
}

}  // namespace orivanta::command

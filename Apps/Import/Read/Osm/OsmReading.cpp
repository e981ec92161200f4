#include "Apps/Import/Read/Osm/OsmReading.hpp"

#include <fmt/core.h>

#include <charconv>
#include <utility>

namespace orivanta::importer {

std::optional<std::int64_t> osmNumber(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<OsmType> osmType(std::string_view text) {
  if (text == "node" || text == "n") return OsmType::node;
  if (text == "way" || text == "w") return OsmType::way;
  if (text == "relation" || text == "r") return OsmType::relation;
  return std::nullopt;
}

void reportCut(const std::string& file, std::size_t line, Findings& findings) {
  Finding finding;
  finding.severity = Severity::violation;
  finding.rule = "file-cut";
  finding.file = file;
  finding.message = line > 0 ? fmt::format("The file ends in the middle of line {}.", line)
                             : std::string("The file ends in the middle of a block.");
  finding.effect = "Everything after it is missing.";
  finding.advice = "Download or export the file again.";
  findings.add(std::move(finding));
}

void reportRemark(const std::string& file, const std::string& remark, Findings& findings) {
  std::size_t length = std::min<std::size_t>(remark.size(), 300);
  while (length < remark.size() && (remark[length] & 0xC0) == 0x80) --length;  // whole characters
  Finding finding;
  finding.severity = Severity::violation;
  finding.rule = "answer-incomplete";
  finding.file = file;
  finding.message = fmt::format("Overpass remarks: \"{}\".", remark.substr(0, length));
  finding.effect = "Parts of the building may be missing.";
  finding.advice = "Ask for a smaller area, or with a longer timeout.";
  findings.add(std::move(finding));
}

void reportUnreadable(const std::string& file, const std::string& place, const std::string& cause,
                      Findings& findings) {
  Finding finding;
  finding.rule = "object-unreadable";
  finding.file = file;
  finding.message = fmt::format("{} cannot be read: {}.", place, cause);
  finding.effect = "The object is left out.";
  finding.advice = "Export the file again, or correct the object.";
  findings.add(std::move(finding));
}

}  // namespace orivanta::importer

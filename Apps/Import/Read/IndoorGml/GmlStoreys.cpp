#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <utility>

#include "Apps/Import/Read/IndoorGml/GmlFootprint.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

double medianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

bool isWordCharacter(char character) {
  return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

}  // namespace

std::string statedStorey(const GmlSpace& cell) {
  if (!cell.storey.empty()) return cell.storey;
  for (const char* key : {"storey", "level", "floor", "story"})
    if (std::string value = descriptionValue(cell.description, key); !value.empty()) return value;
  return {};
}

std::string descriptionValue(std::string_view description, std::string_view key) {
  const std::string lower = lowerCase(description);
  for (std::size_t at = lower.find(key); at != lower.npos; at = lower.find(key, at + 1)) {
    if (at > 0 && isWordCharacter(lower[at - 1])) continue;
    std::size_t start = lower.find_first_not_of(" \t", at + key.size());
    if (start == lower.npos || (lower[start] != '=' && lower[start] != ':')) continue;
    start = lower.find_first_not_of(" \t", start + 1);
    if (start == lower.npos) return {};
    const bool quoted = lower[start] == '"' || lower[start] == '\'';
    const std::size_t from = quoted ? start + 1 : start;
    const std::size_t end =
        quoted ? lower.find(lower[start], from) : lower.find_first_of(";:, \t\r\n", from);
    return std::string(trimmed(description.substr(from, end - from)));
  }
  return {};
}

std::optional<double> ordinalIn(std::string_view text) {
  const std::size_t first = text.find_first_of("0123456789");
  if (first == text.npos) return std::nullopt;
  const std::size_t end = std::min(text.find_first_not_of("0123456789.", first), text.size());
  std::optional<double> number = numberIn(text.substr(first, end - first));
  if (!number || *number > 1000.0) return std::nullopt;
  std::string before = lowerCase(trimmed(text.substr(0, first)));
  // A hyphen after a word, as in "Floor-1", only joins it with the number.
  const bool hasHyphen = before.ends_with('-');
  if (hasHyphen) before.pop_back();
  const bool isMinus = hasHyphen && (before.empty() || !isWordCharacter(before.back()));
  const bool below = isMinus || before == "b" || before.ends_with("basement");
  return below ? -*number : *number;
}

GmlStoreys::GmlStoreys(const GmlDocument& document) {
  readStated(document);
  stated_ = !storeys_.empty();
  if (!stated_) cluster(document);
  measure(document);
}

void GmlStoreys::readStated(const GmlDocument& document) {
  struct Found {
    std::vector<double> heights;
    std::string text;
  };
  std::map<double, Found> found;
  for (const GmlSpace& cell : document.cells) {
    const std::string text = statedStorey(cell);
    const std::optional<double> ordinal = ordinalIn(text);
    if (!ordinal) continue;
    Found& storey = found[*ordinal];
    storey.heights.push_back(extentOf(cell.faces).lowest);
    if (storey.text.empty() || text.size() < storey.text.size()) storey.text = text;
  }
  for (const auto& [ordinal, storey] : found)
    storeys_.push_back({ordinal, medianOf(storey.heights), storey.text});
}

// A storey begins where the heights of cells have a gap of half a storey.
void GmlStoreys::cluster(const GmlDocument& document) {
  std::vector<double> heights;
  std::vector<double> sizes;
  for (const GmlSpace& cell : document.cells) {
    if (cell.faces.empty()) continue;
    const GmlExtent extent = extentOf(cell.faces);
    heights.push_back(extent.lowest);
    if (extent.highest > extent.lowest) sizes.push_back(extent.highest - extent.lowest);
  }
  if (heights.empty())
    for (const GmlState& state : document.states)
      for (const GmlPosition& position : state.positions) heights.push_back(position.z);
  if (heights.empty()) heights.push_back(0.0);
  std::sort(heights.begin(), heights.end());
  double gap = 0.0;
  for (std::size_t each = 1; each < heights.size(); ++each)
    gap = std::max(gap, heights[each] - heights[each - 1]);
  gap = sizes.empty() ? 0.3 * gap : std::min(0.5 * medianOf(sizes), 0.6 * gap);
  for (std::size_t each = 0; each < heights.size(); ++each)
    if (each == 0 || heights[each] - heights[each - 1] > gap)
      storeys_.push_back({0.0, heights[each], {}});
  // The one nearest to the height 0 is the ground floor, unless all are far above or below.
  std::size_t ground = 0;
  for (std::size_t each = 0; each < storeys_.size(); ++each)
    if (std::abs(storeys_[each].z) < std::abs(storeys_[ground].z)) ground = each;
  if (std::abs(storeys_[ground].z) > gap) ground = 0;
  for (std::size_t each = 0; each < storeys_.size(); ++each)
    storeys_[each].ordinal = static_cast<double>(each) - static_cast<double>(ground);
}

void GmlStoreys::measure(const GmlDocument& document) {
  std::vector<double> heights;
  for (std::size_t each = 1; each < storeys_.size(); ++each) {
    const Storey& below = storeys_[each - 1];
    const Storey& above = storeys_[each];
    // Where the ground floor is 1, it follows the basement -1.
    const bool withoutZero = below.ordinal < 0.0 && above.ordinal > 0.0;
    const double steps = above.ordinal - below.ordinal - (withoutZero ? 1.0 : 0.0);
    const double height = (above.z - below.z) / std::max(steps, 0.5);
    if (height > 0.0) heights.push_back(height);
  }
  if (heights.empty())
    for (const GmlSpace& cell : document.cells) {
      const GmlExtent extent = extentOf(cell.faces);
      if (extent.highest > extent.lowest) heights.push_back(extent.highest - extent.lowest);
    }
  if (!heights.empty()) height_ = medianOf(heights);
}

double GmlStoreys::of(const GmlSpace& cell) const {
  if (stated_)
    if (const std::optional<double> ordinal = ordinalIn(statedStorey(cell))) return *ordinal;
  return at(extentOf(cell.faces).lowest);
}

double GmlStoreys::at(double z) const {
  // Points lie on the floor or a little above it.
  const double raised = z - 0.3 * height_;
  const auto nearest = std::min_element(
      storeys_.begin(), storeys_.end(), [&](const Storey& first, const Storey& second) {
        return std::abs(first.z - raised) < std::abs(second.z - raised);
      });
  return nearest->ordinal;
}

}  // namespace orivanta::importer

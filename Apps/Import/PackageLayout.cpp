#include "Apps/Import/PackageLayout.hpp"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "Apps/Package/Box.hpp"
#include "Apps/Package/Units.hpp"

namespace orivanta::importer {

using package::Box;

namespace {

void reach(Box& box, const std::vector<Polygon>& shape) {
  for (const Polygon& polygon : shape) box.add(polygon.outer);
}

// The bounds of each storey; `all` is of the whole building.
std::map<double, Box> boundsOf(const Building& building, Box& all) {
  std::map<double, Box> bounds;
  for (const Storey& storey : building.storeys) reach(bounds[storey.ordinal], storey.footprint);
  for (const Area& area : building.areas) reach(bounds[area.level], area.shape);
  for (const Node& node : building.network.nodes) bounds[node.level].add(node.position);
  for (const auto& [level, box] : bounds) {
    if (box.longestSide() <= 0.0) continue;
    all.add(box.least);
    all.add(box.most);
  }
  return bounds;
}

// The largest of 1, 2, 5, 10, ... with which the side is at most 2,000 units.
double roundScale(double meters) {
  if (meters <= 0.0) return 1.0;
  const double most = 2000.0 / meters;
  const double power = std::pow(10.0, std::floor(std::log10(most)));
  for (const double digit : {5.0, 2.0})
    if (digit * power <= most) return power < 1.0 ? digit / std::round(1.0 / power) : digit * power;
  return power < 1.0 ? 1.0 / std::round(1.0 / power) : power;
}

// Letters of Western European languages without their accents.
std::string_view plainLetter(std::string_view letter) {
  constexpr std::pair<std::string_view, std::string_view> letters[] = {
      {"ä", "ae"}, {"ö", "oe"}, {"ü", "ue"}, {"Ä", "ae"}, {"Ö", "oe"}, {"Ü", "ue"}, {"ß", "ss"},
      {"é", "e"},  {"è", "e"},  {"ê", "e"},  {"ë", "e"},  {"É", "e"},  {"È", "e"},  {"à", "a"},
      {"â", "a"},  {"á", "a"},  {"ã", "a"},  {"å", "a"},  {"À", "a"},  {"Á", "a"},  {"Å", "a"},
      {"ç", "c"},  {"Ç", "c"},  {"î", "i"},  {"ï", "i"},  {"í", "i"},  {"ô", "o"},  {"ó", "o"},
      {"õ", "o"},  {"ø", "o"},  {"Ø", "o"},  {"ú", "u"},  {"ù", "u"},  {"û", "u"},  {"ñ", "n"},
      {"æ", "ae"}, {"œ", "oe"}};
  for (const auto& [accented, plain] : letters)
    if (accented == letter) return plain;
  return {};
}

// The text in small letters and digits, with single hyphens between them.
std::string asSlug(std::string_view text) {
  std::string slug;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= 'A' && c <= 'Z') {
      slug += static_cast<char>(c - 'A' + 'a');
    } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
      slug += c;
    } else if (const auto plain = plainLetter(text.substr(i, 2)); !plain.empty()) {
      slug += plain;
      ++i;
    } else if (c != '\'' && !slug.empty() && slug.back() != '-') {
      slug += '-';
    }
  }
  while (!slug.empty() && slug.back() == '-') slug.pop_back();
  return slug.substr(0, 60);
}

// The identifier with only letters, digits, periods and hyphens.
std::string asFileName(std::string_view id) {
  std::string name(id.substr(0, 80));
  for (char& c : name) {
    const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                       c == '.' || c == '-';
    if (!plain) c = '-';
  }
  return name.empty() || name.front() == '.' ? "floor" + name : name;
}

}  // namespace

PackageLayout::PackageLayout(const Building& building) : building_(&building) {
  Box all;
  const std::map<double, Box> bounds = boundsOf(building, all);
  unitsPerMeter_ = roundScale(all.longestSide());
  places_.reserve(building.places.size());
  for (const Place& place : building.places) places_.emplace(place.id, &place);
  slug_ = asSlug(building.names.name);
  for (const auto& [language, name] : building.names.byLanguage)
    if (slug_.size() < 3) slug_ = asSlug(name);
  if (slug_.size() < 3) slug_ = asSlug(building.id);
  if (slug_.empty()) slug_ = "building";

  std::set<std::string> taken;
  for (const Storey& storey : building.storeys) {
    maps_.push_back(&storey);
    byLevel_.emplace(storey.ordinal, &storey);
    std::string file = asFileName(storey.id);
    while (!taken.insert(file).second) file += "-2";
    files_.emplace(storey.ordinal, file);
  }
  const auto side = [&](const Storey* storey) {
    const auto found = bounds.find(storey->ordinal);
    return found == bounds.end() ? 0.0 : found->second.longestSide();
  };
  const auto main =
      std::max_element(maps_.begin(), maps_.end(),
                       [&](const Storey* a, const Storey* b) { return side(a) < side(b); });
  if (main != maps_.end()) std::rotate(maps_.begin(), main, main + 1);
}

const Place* PackageLayout::placeOf(const Area& area) const {
  const auto found = places_.find(area.place);
  return found == places_.end() ? nullptr : found->second;
}

double PackageLayout::toUnits(double meters) const {
  return package::roundedUnits(meters * unitsPerMeter_);
}

const Storey* PackageLayout::storeyAt(double level) const {
  const auto found = byLevel_.find(level);
  return found == byLevel_.end() ? nullptr : found->second;
}

std::string PackageLayout::mapAt(double level) const {
  const Storey* storey = storeyAt(level);
  return storey == nullptr ? std::string() : packageId(storey->id);
}

bool isTappable(AreaKind kind) {
  return kind != AreaKind::wall && kind != AreaKind::obstacle && kind != AreaKind::opening;
}

std::string packageId(std::string_view source) {
  std::string id(source);
  std::replace_if(
      id.begin(), id.end(),
      [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '#'; }, '_');
  return id;
}

}  // namespace orivanta::importer

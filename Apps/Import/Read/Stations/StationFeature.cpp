// The fields of a record of a station network.
#include <algorithm>
#include <array>
#include <string>

#include "Apps/Import/Read/Stations/StationLayer.hpp"

namespace orivanta::importer {

namespace {

constexpr std::array<std::string_view, 18> usedFields = {
    "id",       "category",  "floor_id", "name",      "ordinal",    "short_name",
    "node_id",  "lat",       "lon",      "link_id",   "end_id",     "start_id",
    "distance", "direction", "elevator", "nonpublic", "restricted", "route_type"};

struct OtherWord {
  std::string_view name;
  std::string_view used;
};

// As other networks write them, without underscores.
constexpr std::array otherWords = {
    OtherWord{"floorid", "floor_id"},     OtherWord{"floor", "ordinal"},
    OtherWord{"level", "ordinal"},        OtherWord{"shortname", "short_name"},
    OtherWord{"nodeid", "node_id"},       OtherWord{"latitude", "lat"},
    OtherWord{"longitude", "lon"},        OtherWord{"linkid", "link_id"},
    OtherWord{"startid", "start_id"},     OtherWord{"startnode", "start_id"},
    OtherWord{"startnodeid", "start_id"}, OtherWord{"from", "start_id"},
    OtherWord{"endid", "end_id"},         OtherWord{"endnode", "end_id"},
    OtherWord{"endnodeid", "end_id"},     OtherWord{"to", "end_id"},
    OtherWord{"length", "distance"},      OtherWord{"routetype", "route_type"},
    OtherWord{"nameja", "name"}};

}  // namespace

StationFeature::UsedName StationFeature::usedName(std::string_view name) {
  const auto* const used = std::find(usedFields.begin(), usedFields.end(), name);
  if (used != usedFields.end()) return {*used, Known::yes};
  std::string word(name);
  std::erase(word, '_');
  for (const auto& [other, meant] : otherWords)
    if (word == other) return {meant, Known::inOtherWords};
  return {};
}

void StationFeature::add(std::string_view name, std::string_view value) {
  const auto used = std::find(usedFields.begin(), usedFields.end(), name);
  if (used == usedFields.end() || value.empty() || !(*this)[name].empty()) return;
  Field& field = fields_.emplace_back();
  field.name = static_cast<std::uint8_t>(used - usedFields.begin());
  field.set(value);
}

std::string_view StationFeature::operator[](std::string_view name) const {
  for (const Field& field : fields_)
    if (usedFields[field.name] == name) return field.value();
  return {};
}

}  // namespace orivanta::importer

#include "Apps/Import/Read/Osm/OsmData.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

constexpr std::int64_t unit = 10'000'000;  // per degree
constexpr std::int64_t firstUnnamed = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t endOfUnnamed = firstUnnamed / 8;  // above all of `unnamedNode`

bool isKept(std::string_view key) {
  for (const std::string_view unused :
       {"source", "created_by", "note", "fixme", "FIXME", "user", "uid"})
    if (key == unused) return false;
  return !key.empty() && !key.starts_with("source:") && !key.starts_with("note:");
}

template <class Object>
void order(std::vector<Object>& objects) {
  const auto isBefore = [](const Object& first, const Object& second) {
    return first.id < second.id;
  };
  if (!std::is_sorted(objects.begin(), objects.end(), isBefore))
    std::stable_sort(objects.begin(), objects.end(), isBefore);
  objects.erase(
      std::unique(objects.begin(), objects.end(),
                  [](const Object& first, const Object& second) { return first.id == second.id; }),
      objects.end());
}

template <class Object>
const Object* find(const std::vector<Object>& objects, std::int64_t id) {
  const auto found =
      std::lower_bound(objects.begin(), objects.end(), id,
                       [](const Object& object, std::int64_t other) { return object.id < other; });
  return found == objects.end() || found->id != id ? nullptr : &*found;
}

}  // namespace

void OsmTags::add(std::string_view key, std::string_view value) {
  if (isKept(key) && !value.empty()) tags_.emplace_back(key, value);
}

void OsmTags::finish() {
  std::stable_sort(tags_.begin(), tags_.end(), [](const auto& first, const auto& second) {
    return first.first < second.first;
  });
  tags_.erase(std::unique(tags_.begin(), tags_.end(),
                          [](const auto& first, const auto& second) {
                            return first.first == second.first;
                          }),
              tags_.end());
  tags_.shrink_to_fit();
}

std::string_view OsmTags::operator[](std::string_view key) const {
  const auto found =
      std::lower_bound(tags_.begin(), tags_.end(), key,
                       [](const auto& tag, std::string_view other) { return tag.first < other; });
  return found == tags_.end() || found->first != key ? std::string_view()
                                                     : std::string_view(found->second);
}

OsmData::OsmData(const Limits& limits, std::string file)
    : file_(std::move(file)), greatestCount_(2 * limits.vertices) {}

void OsmData::count(std::size_t number) {
  count_ += number;
  if (count_ > greatestCount_)
    throw SourceError(fmt::format(
        "{}: the extract has more than {} points and members; cut out the building first, for "
        "example with \"osmium extract\"",
        file_, greatestCount_));
}

void OsmData::addNode(std::int64_t id, double longitude, double latitude, OsmTags tags) {
  count(1);
  OsmPosition position;
  if (!toOsmPosition(longitude, latitude, position)) return;
  tags.finish();
  nodes_.push_back({id, position, std::move(tags)});
}

void OsmData::addWay(OsmWay way) {
  count(1 + way.nodes.size());
  way.tags.finish();
  ways_.push_back(std::move(way));
}

void OsmData::addRelation(OsmRelation relation) {
  count(1 + relation.members.size());
  relation.tags.finish();
  relations_.push_back(std::move(relation));
}

void OsmData::finish() {
  order(nodes_);
  order(ways_);
  order(relations_);
}

const OsmNode* OsmData::node(std::int64_t id) const { return find(nodes_, id); }
const OsmWay* OsmData::way(std::int64_t id) const { return find(ways_, id); }

std::int64_t OsmData::unnamedNode(OsmPosition position) {
  const std::int64_t column = std::int64_t{position.longitude} + 180 * unit;
  const std::int64_t row = std::int64_t{position.latitude} + 90 * unit;
  return firstUnnamed + column * (180 * unit + 1) + row;
}

std::string OsmData::nodeText(const OsmNode& node) {
  if (node.id < endOfUnnamed)
    return fmt::format("node/at-{}-{}", node.position.longitude, node.position.latitude);
  return fmt::format("node/{}", node.id);
}

bool toOsmPosition(double longitude, double latitude, OsmPosition& position) {
  if (!(std::abs(longitude) <= 180.0) || !(std::abs(latitude) <= 90.0)) return false;
  position = {static_cast<std::int32_t>(std::lround(longitude * static_cast<double>(unit))),
              static_cast<std::int32_t>(std::lround(latitude * static_cast<double>(unit)))};
  return true;
}

}  // namespace orivanta::importer

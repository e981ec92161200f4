#include "Apps/Import/Read/Osm/OsmData.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

constexpr std::int64_t unit = 10'000'000;  // per degree
constexpr std::int64_t firstUnnamed = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t endOfUnnamed = firstUnnamed / 8;  // above all of `unnamedNode`
constexpr std::int64_t rows = 180 * unit + 1;            // positions on a meridian

bool isKept(std::string_view key) {
  for (const std::string_view unused :
       {"source", "created_by", "note", "fixme", "FIXME", "user", "uid"})
    if (key == unused) return false;
  return !key.empty() && !key.starts_with("source:") && !key.starts_with("note:");
}

bool isUnnamed(std::int64_t node) { return node < endOfUnnamed; }

OsmPosition positionOf(std::int64_t unnamedNode) {
  const std::int64_t index = unnamedNode - firstUnnamed;
  return {static_cast<std::int32_t>(index / rows - 180 * unit),
          static_cast<std::int32_t>(index % rows - 90 * unit)};
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

void OsmTags::finish(TextPool& texts) {
  std::stable_sort(tags_.begin(), tags_.end(), [](const auto& first, const auto& second) {
    return first.first < second.first;
  });
  tags_.erase(std::unique(tags_.begin(), tags_.end(),
                          [](const auto& first, const auto& second) {
                            return first.first == second.first;
                          }),
              tags_.end());
  tags_.shrink_to_fit();
  for (auto& [key, value] : tags_) {
    key = texts.keep(key);
    value = texts.keep(value);
  }
}

void OsmTags::insert(std::string_view key, std::string_view value) {
  const std::pair tag(key, value);
  tags_.insert(std::lower_bound(tags_.begin(), tags_.end(), tag), tag);
}

std::size_t OsmTags::bytes() const {
  std::size_t sum = 0;
  for (const auto& [key, value] : tags_) sum += key.size() + value.size();
  return sum;
}

std::string_view OsmTags::operator[](std::string_view key) const {
  const auto found =
      std::lower_bound(tags_.begin(), tags_.end(), key,
                       [](const auto& tag, std::string_view other) { return tag.first < other; });
  return found == tags_.end() || found->first != key ? std::string_view() : found->second;
}

OsmData::OsmData(const Limits& limits, std::string file)
    : file_(std::move(file)),
      greatestCount_(2 * limits.vertices),
      greatestBytes_(limits.bytes / 4) {}

// One text of a compressed file may belong to many objects, each of which gets a copy of it later.
void OsmData::count(std::size_t number, const OsmTags& tags) {
  count_ += number;
  bytes_ += tags.bytes();
  if (count_ <= greatestCount_ && bytes_ <= greatestBytes_) return;
  throw SourceError(fmt::format(
      "{}: the extract has more than {} points and members, or more than {} MiB of tags; cut out "
      "the building first, for example with \"osmium extract\"",
      file_, greatestCount_, greatestBytes_ >> 20U));
}

void OsmData::addNode(std::int64_t id, double longitude, double latitude, OsmTags tags) {
  static const OsmTags none;
  OsmPosition position;
  const bool exists = toOsmPosition(longitude, latitude, position);
  tags.finish(texts_);
  count(1, tags);
  if (!exists) return;
  nodes_.push_back({id, position, &none});
  if (tags.empty()) return;
  if (nodeTags_.empty() || nodeTags_.back() != tags) nodeTags_.push_back(std::move(tags));
  nodes_.back().tags = &nodeTags_.back();
}

void OsmData::addWay(OsmWay way) {
  way.tags.finish(texts_);
  way.nodes.shrink_to_fit();
  count(1 + way.nodes.size(), way.tags);
  hasUnnamedNodes_ = hasUnnamedNodes_ || std::any_of(way.nodes.begin(), way.nodes.end(), isUnnamed);
  ways_.push_back(std::move(way));
}

void OsmData::addMemberWay(OsmWay way) {
  way.tags = {};
  way.nodes.shrink_to_fit();
  count(1 + way.nodes.size(), way.tags);
  hasUnnamedNodes_ = hasUnnamedNodes_ || std::any_of(way.nodes.begin(), way.nodes.end(), isUnnamed);
  memberWays_.push_back(std::move(way));
}

void OsmData::addRelation(OsmRelation relation) {
  relation.tags.finish(texts_);
  relation.members.shrink_to_fit();
  count(1 + relation.members.size(), relation.tags);
  relations_.push_back(std::move(relation));
}

void OsmData::finish() {
  ways_.insert(ways_.end(), std::make_move_iterator(memberWays_.begin()),
               std::make_move_iterator(memberWays_.end()));
  memberWays_ = {};
  if (hasUnnamedNodes_) nameNodes();
  // The corners of ways repeat nodes without their tags.
  std::stable_partition(nodes_.begin(), nodes_.end(),
                        [](const OsmNode& node) { return !node.tags->empty(); });
  order(nodes_);
  order(ways_);
  order(relations_);
  takeLevelsOfRelations();
}

void OsmData::takeLevelsOfRelations() {
  for (const OsmRelation& relation : relations_) {
    if (!relation.tags.is("type", "level") || !relation.tags.has("level")) continue;
    for (const OsmMember& member : relation.members) {
      if (member.type != OsmType::way) continue;
      const OsmWay* found = way(member.id);
      if (found == nullptr || found->tags.has("level") || found->tags.has("building")) continue;
      ways_[static_cast<std::size_t>(found - ways_.data())].tags.insert("level",
                                                                        relation.tags["level"]);
    }
  }
}

const OsmNode* OsmData::node(std::int64_t id) const { return find(nodes_, id); }
const OsmWay* OsmData::way(std::int64_t id) const { return find(ways_, id); }

bool OsmData::isPublished() const {
  const auto any = [&](const auto& isOne) {
    return std::any_of(nodes_.begin(), nodes_.end(), isOne) ||
           std::any_of(ways_.begin(), ways_.end(), isOne) ||
           std::any_of(relations_.begin(), relations_.end(), isOne);
  };
  return any([](const auto& object) { return object.id > 0; }) ||
         !any([](const auto& object) { return object.id >= endOfUnnamed; });
}

void OsmData::nameNodes() {
  std::vector<std::pair<OsmPosition, std::int64_t>> named;
  for (const OsmNode& node : nodes_)
    if (!isUnnamed(node.id)) named.emplace_back(node.position, node.id);
  std::sort(named.begin(), named.end());
  for (OsmWay& way : ways_)
    for (std::int64_t& id : way.nodes) {
      if (!isUnnamed(id)) continue;
      const OsmPosition position = positionOf(id);
      const auto found = std::lower_bound(named.begin(), named.end(),
                                          std::pair(position, std::int64_t{firstUnnamed}));
      if (found != named.end() && found->first == position) id = found->second;
    }
}

std::int64_t OsmData::unnamedNode(OsmPosition position) {
  const std::int64_t column = std::int64_t{position.longitude} + 180 * unit;
  const std::int64_t row = std::int64_t{position.latitude} + 90 * unit;
  return firstUnnamed + column * rows + row;
}

std::string OsmData::nodeText(const OsmNode& node) {
  if (isUnnamed(node.id))
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

#include "Apps/Import/Read/Osm/OsmFootways.hpp"

#include <boost/unordered/unordered_flat_map.hpp>
#include <cstdint>
#include <set>

#include "Apps/Import/Read/Osm/OsmMeaning.hpp"

namespace orivanta::importer {

namespace {

bool isOutdoorFootway(const OsmThing& thing, const OsmBox& drawn) {
  const OsmTags& tags = *thing.tags;
  if (!thing.isLine() || !thing.levels.empty() || isIndoors(tags) || !tags.has("highway") ||
      tags.has("tunnel") || tags.has("bridge") || !thing.box.meets(drawn))
    return false;
  const auto kind = lineKind(tags);
  return kind == LineKind::path || kind == LineKind::steps;
}

bool isOnGround(const OsmThing& thing) {
  if (thing.levels.empty()) return thing.isNode() && isDoor(*thing.tags);
  for (const std::vector<double>& levels : thing.levels)
    for (const double level : levels)
      if (level == 0.0) return true;
  return false;
}

// The footways that meet each other, group by group.
class Groups {
 public:
  Groups(const std::vector<OsmThing>& things, std::vector<std::size_t> footways)
      : things_(things), footways_(std::move(footways)), isDone_(footways_.size()) {
    for (std::size_t i = 0; i < footways_.size(); ++i)
      for (const OsmPosition position : pointsOf(i)) at_[keyOf(position)].push_back(i);
  }

  /// Calls `use(group)` with the indices of things.
  template <class Use>
  void forEach(const Use& use) {
    for (std::size_t i = 0; i < footways_.size(); ++i)
      if (!isDone_[i]) use(groupOf(i));
  }

 private:
  static std::int64_t keyOf(OsmPosition position) {
    return (std::int64_t{position.longitude} << 32) + position.latitude;
  }

  const std::vector<OsmPosition>& pointsOf(std::size_t footway) const {
    return things_[footways_[footway]].points;
  }

  std::vector<std::size_t> groupOf(std::size_t first) {
    std::vector<std::size_t> waiting = {first};
    std::vector<std::size_t> group;
    isDone_[first] = true;
    while (!waiting.empty()) {
      const std::size_t footway = waiting.back();
      waiting.pop_back();
      group.push_back(footways_[footway]);
      for (const OsmPosition position : pointsOf(footway)) {
        // Each position is looked at once.
        std::vector<std::size_t> others = std::move(at_[keyOf(position)]);
        at_[keyOf(position)].clear();
        for (const std::size_t other : others) {
          if (isDone_[other]) continue;
          isDone_[other] = true;
          waiting.push_back(other);
        }
      }
    }
    return group;
  }

  const std::vector<OsmThing>& things_;
  std::vector<std::size_t> footways_;
  std::vector<bool> isDone_;
  boost::unordered_flat_map<std::int64_t, std::vector<std::size_t>> at_;
};

}  // namespace

void takeFootways(std::vector<OsmThing>& things, const OsmTouching& touching) {
  OsmBox drawn;
  for (const OsmThing& thing : things)
    if (thing.isArea() && !thing.levels.empty()) {
      drawn.add(thing.box.low);
      drawn.add(thing.box.high);
    }
  std::vector<std::size_t> footways;
  for (std::size_t i = 0; i < things.size(); ++i)
    if (isOutdoorFootway(things[i], drawn)) footways.push_back(i);
  Groups(things, std::move(footways)).forEach([&](const std::vector<std::size_t>& group) {
    std::set<OsmPosition> ends;
    for (const std::size_t footway : group)
      for (const OsmPosition position : things[footway].points)
        if (ends.size() < 2)
          touching.forEachAt(position, [&](const OsmThing& thing, bool) {
            if (isOnGround(thing)) ends.insert(position);
          });
    if (ends.size() < 2) return;
    for (const std::size_t footway : group) {
      things[footway].levels = {{0.0}};
      things[footway].isOutdoors = true;
    }
  });
}

}  // namespace orivanta::importer

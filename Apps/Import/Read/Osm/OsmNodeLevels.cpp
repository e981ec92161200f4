#include "Apps/Import/Read/Osm/OsmNodeLevels.hpp"

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "Apps/Import/Read/Osm/OsmMeaning.hpp"

namespace orivanta::importer {

void takeNodeLevels(OsmThing& thing, const OsmTouching& touching) {
  const OsmTags& tags = *thing.tags;
  // How many areas are on each level. Where none goes straight on, the node is a corner, at which
  // nobody builds doors; it is a door only if that is so on all levels.
  struct Areas {
    int number = 0;
    bool areCorners = true;
  };
  std::map<double, Areas> levels;
  std::set<double> ofLines;
  bool areJoined = false;
  bool areCorners = true;
  touching.forEachAt(thing.points[0], [&](const OsmThing& other, bool isStraight) {
    if (other.isNode()) return;
    for (const std::vector<double>& list : other.levels) {
      if (isDoor(tags) && other.isLine()) {
        ofLines.insert(list.begin(), list.end());
        continue;
      }
      for (const double level : list) {
        Areas& areas = levels[level];
        areJoined |= ++areas.number > 1;
        areas.areCorners &= !isStraight;
        areCorners &= !isStraight;
      }
    }
  });
  // Where one is drawn on the outlines of several levels, people enter the building on the ground.
  const bool isOnGround = !areJoined && levels.contains(0.0) && tags.has("entrance") &&
                          !tags.is("entrance", "emergency") && !tags.is("entrance", "exit");
  for (const auto& [level, areas] : levels) {
    const bool isDoorway = (!areJoined || areas.number > 1) && areas.areCorners == areCorners;
    if (isElevator(tags) || (isDoorway && (!isOnGround || level == 0.0)))
      thing.levels.push_back({level});
  }
  if (levels.empty())
    for (const double level : ofLines) thing.levels.push_back({level});
  if (thing.levels.empty() && (thing.building != 0 || isIndoors(tags)) &&
      (tags.has("entrance") || (isDestination(tags) && !isDoor(tags))))
    thing.levels = {{0.0}};
  if (thing.levels.empty() || !isElevator(tags)) return;
  // An elevator is one thing on all its levels.
  std::vector<double> all;
  for (const std::vector<double>& list : thing.levels) all.push_back(list[0]);
  thing.levels = {std::move(all)};
}

}  // namespace orivanta::importer

#include "Apps/Import/Read/Osm/OsmShapes.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <boost/unordered/unordered_flat_set.hpp>
#include <map>
#include <tuple>
#include <utility>

#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmRings.hpp"
#include "Apps/Import/Read/Osm/OsmShapeFindings.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

// The tags of an old multipolygon are on its outer way; the relation has only its type.
bool hasOwnTags(const OsmRelation& relation) {
  return std::any_of(relation.tags.begin(), relation.tags.end(),
                     [](const auto& tag) { return tag.first != "type"; });
}

bool isMultipolygon(const OsmRelation& relation) {
  return relation.tags.is("type", "multipolygon") || relation.tags.is("type", "boundary");
}

bool mattersAsArea(const OsmTags& tags) {
  return isBuilding(tags) || isLevelOutline(tags) || areaKind(tags).has_value() || isNamed(tags);
}

class Shapes {
 public:
  Shapes(const OsmData& data, const Limits& limits, Findings& findings)
      : data_(data), positionsLeft_(2 * limits.vertices), findings_(findings) {}

  std::vector<OsmThing> run() {
    for (const OsmWay& way : data_.ways())
      if (lineKind(way.tags)) ofLines_.insert(way.nodes.begin(), way.nodes.end());
    things_.reserve(data_.ways().size() + data_.relations().size());
    for (const OsmNode& node : data_.nodes()) addNode(node);
    for (const OsmRelation& relation : data_.relations())
      if (isMultipolygon(relation) && !hasOwnTags(relation)) takeHoles(relation);
    for (const OsmWay& way : data_.ways()) addWay(way);
    for (const OsmRelation& relation : data_.relations())
      if (isMultipolygon(relation) && hasOwnTags(relation)) addRelation(relation);
    return std::move(things_);
  }

 private:
  struct Line {
    OsmRing positions;
    std::vector<std::int64_t> nodes;
    std::size_t missing = 0;
  };

  // Relations may share ways, so their lines are counted.
  Line lineOf(const OsmWay& way) {
    if (way.nodes.size() > positionsLeft_)
      throw SourceError(
          fmt::format("{}: the lines of the extract have too many points, because relations share "
                      "them; cut out the building first, for example with \"osmium extract\"",
                      data_.file()));
    positionsLeft_ -= way.nodes.size();
    Line line;
    line.positions.reserve(way.nodes.size());
    line.nodes.reserve(way.nodes.size());
    for (const std::int64_t id : way.nodes) {
      const OsmNode* node = data_.node(id);
      if (node == nullptr) {
        ++line.missing;
        continue;
      }
      if (!line.nodes.empty() && line.nodes.back() == id) continue;
      line.positions.push_back(node->position);
      line.nodes.push_back(id);
    }
    // A ring whose first node is missing is still one.
    const bool wasClosed = way.nodes.size() >= 4 && way.nodes.front() == way.nodes.back();
    if (wasClosed && line.missing > 0 && line.nodes.size() >= 3 &&
        line.nodes.front() != line.nodes.back()) {
      line.positions.push_back(line.positions.front());
      line.nodes.push_back(line.nodes.front());
    }
    return line;
  }

  static bool isClosed(const Line& line) {
    return line.positions.size() >= 4 && line.positions.front() == line.positions.back();
  }

  static void normalize(Line& line) {
    std::vector<std::pair<OsmPosition, std::int64_t>> points;
    for (std::size_t i = 0; i + 1 < line.nodes.size(); ++i)
      points.emplace_back(line.positions[i], line.nodes[i]);
    std::rotate(points.begin(), std::min_element(points.begin(), points.end()), points.end());
    if (points.back() < points[1]) std::reverse(points.begin() + 1, points.end());
    points.push_back(points.front());
    for (std::size_t i = 0; i < points.size(); ++i)
      std::tie(line.positions[i], line.nodes[i]) = points[i];
  }

  void addNode(const OsmNode& node) {
    const OsmTags& tags = *node.tags;
    // The levels of other nodes only tell about the lines through them.
    if (tags.empty() || (!isDoor(tags) && !isElevator(tags) && !isDestination(tags) &&
                         !(isIndoors(tags) && ofLines_.contains(node.id))))
      return;
    OsmThing thing = begin(OsmData::nodeText(node), OsmType::node, tags);
    thing.points.push_back(node.position);
    add(std::move(thing));
  }

  void addWay(const OsmWay& way) {
    const bool isArea = isAreaByTags(way.tags) && mattersAsArea(way.tags);
    const bool isDoorLine = !isArea && !lineKind(way.tags) && way.tags.has("door");
    if (!isArea && !isDoorLine && !lineKind(way.tags)) return;
    Line line = lineOf(way);
    const std::string id = fmt::format("way/{}", way.id);
    // What is left of an outline without most of its corners is another one.
    const bool isLost = way.nodes.empty() || (isArea && 2 * line.missing > way.nodes.size());
    if ((isLost || line.missing > 0) && isIndoors(way.tags))
      findings_.add(nodesMissing(id, line.missing, isLost, data_.file()));
    if (isLost) return;
    if (isDoorLine) return addDoorLine(id, way.tags, line.positions);
    OsmThing thing = begin(id, OsmType::way, way.tags);
    if (isArea && isClosed(line)) {
      const auto holes = holes_.find(way.id);
      thing.polygons = polygonsOf({std::move(line.positions)},
                                  holes == holes_.end() ? std::vector<OsmRing>() : holes->second);
      if (thing.polygons.empty()) return;
    } else if (lineKind(way.tags) && line.positions.size() >= 2) {
      // Formats that draw closed lines as areas do not keep their direction and first point.
      if (isClosed(line) && directionOfLine(way.tags) == Direction::both) normalize(line);
      thing.points = std::move(line.positions);
      thing.nodes = std::move(line.nodes);
    } else {
      if (isArea && isIndoors(way.tags) && !way.tags.is("indoor", "yes"))
        findings_.add(ringOpen(id, data_.file()));
      return;
    }
    add(std::move(thing));
  }

  // A door that is drawn as a line is one at its middle.
  void addDoorLine(const std::string& id, const OsmTags& tags, const OsmRing& line) {
    if (line.size() < 2) return;
    OsmThing thing = begin(id, OsmType::node, tags);
    OsmBox box;
    for (const OsmPosition end : {line.front(), line.back()}) box.add(end);
    thing.points.push_back(box.middle());
    add(std::move(thing));
  }

  // Sorts the ways of a relation by whether they are holes.
  void membersOf(const OsmRelation& relation, std::vector<const OsmWay*>& outer,
                 std::vector<const OsmWay*>& inner) const {
    for (const OsmMember& member : relation.members) {
      if (member.type != OsmType::way) continue;
      if (const OsmWay* way = data_.way(member.id)) (member.isInner ? inner : outer).push_back(way);
    }
  }

  std::vector<OsmRing> ringsOf(const std::vector<const OsmWay*>& ways, std::size_t& open) {
    std::vector<OsmRing> pieces;
    pieces.reserve(ways.size());
    for (const OsmWay* way : ways) pieces.push_back(lineOf(*way).positions);
    return joinedRings(std::move(pieces), open);
  }

  void takeHoles(const OsmRelation& relation) {
    std::vector<const OsmWay*> outer;
    std::vector<const OsmWay*> inner;
    membersOf(relation, outer, inner);
    if (outer.size() != 1 || !mattersAsArea(outer[0]->tags)) return;
    std::size_t open = 0;
    for (OsmRing& ring : ringsOf(inner, open)) holes_[outer[0]->id].push_back(std::move(ring));
  }

  void addRelation(const OsmRelation& relation) {
    if (!mattersAsArea(relation.tags)) return;
    std::vector<const OsmWay*> outer;
    std::vector<const OsmWay*> inner;
    membersOf(relation, outer, inner);
    std::size_t openOuter = 0;
    std::size_t openInner = 0;
    OsmThing thing =
        begin(fmt::format("relation/{}", relation.id), OsmType::relation, relation.tags);
    std::vector<OsmRing> rings = ringsOf(outer, openOuter);
    thing.polygons = polygonsOf(std::move(rings), ringsOf(inner, openInner));
    if (openOuter + openInner > 0 && isIndoors(relation.tags))
      findings_.add(ringOpen(thing.id, data_.file()));
    if (!thing.polygons.empty()) add(std::move(thing));
  }

  OsmThing begin(std::string id, OsmType type, const OsmTags& tags) const {
    OsmThing thing;
    thing.id = std::move(id);
    thing.type = type;
    thing.tags = &tags;
    return thing;
  }

  void add(OsmThing thing) {
    for (const OsmPosition position : thing.points) thing.box.add(position);
    for (const OsmPolygon& polygon : thing.polygons)
      for (const OsmPosition position : polygon.outer) thing.box.add(position);
    things_.push_back(std::move(thing));
  }

  const OsmData& data_;
  std::size_t positionsLeft_;
  Findings& findings_;
  std::vector<OsmThing> things_;
  boost::unordered_flat_set<std::int64_t> ofLines_;  // nodes
  std::map<std::int64_t, std::vector<OsmRing>> holes_;
};

}  // namespace

std::vector<OsmThing> thingsOf(const OsmData& data, const Limits& limits, Findings& findings) {
  return Shapes(data, limits, findings).run();
}

}  // namespace orivanta::importer

// The objects of an extract of OpenStreetMap: nodes, ways and relations with their tags, as all of
// its formats carry them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/TextPool.hpp"

namespace orivanta::importer {

/// Keys and values, ordered by key. Of a repeated key, the first value counts.
class OsmTags {
 public:
  /// Tags that only concern the editing of the map, such as "source", are not kept. The texts must
  /// be valid until `OsmData` has taken the tags. The order of calls does not matter.
  void add(std::string_view key, std::string_view value);
  /// Ends the calls of `add`: orders the tags and keeps their texts in the pool.
  void finish(TextPool& texts);
  /// Adds a tag after `finish`. Its texts are not kept: they must be valid as long as the tags.
  void insert(std::string_view key, std::string_view value);

  friend bool operator==(const OsmTags&, const OsmTags&) = default;

  /// The length of all texts.
  std::size_t bytes() const;

  bool empty() const { return tags_.empty(); }
  /// The value; empty if there is none.
  std::string_view operator[](std::string_view key) const;
  bool has(std::string_view key) const { return !(*this)[key].empty(); }
  bool is(std::string_view key, std::string_view value) const { return (*this)[key] == value; }

  auto begin() const { return tags_.begin(); }
  auto end() const { return tags_.end(); }

 private:
  std::vector<std::pair<std::string_view, std::string_view>> tags_;
};

/// A position in units of 1e-7 degrees, the resolution of OpenStreetMap.
struct OsmPosition {
  std::int32_t longitude = 0;
  std::int32_t latitude = 0;

  friend auto operator<=>(const OsmPosition&, const OsmPosition&) = default;  // NOLINT: no pointer
};

struct OsmNode {
  std::int64_t id = 0;
  OsmPosition position;
  const OsmTags* tags = nullptr;  ///< never null in `OsmData`
};

struct OsmWay {
  std::int64_t id = 0;
  std::vector<std::int64_t> nodes;
  OsmTags tags;
};

enum class OsmType { node, way, relation };

struct OsmMember {
  std::int64_t id = 0;
  OsmType type = OsmType::node;
  bool isInner = false;  ///< its role is that of a hole
};

struct OsmRelation {
  std::int64_t id = 0;
  std::vector<OsmMember> members;
  OsmTags tags;
};

/// All objects of an extract. Readers add them in any order; `finish` orders them by identifier,
/// keeps the first of equal ones, gives ways the named nodes at the positions of their unnamed
/// ones, and gives ways without a level that of a relation with type=level that collects them.
class OsmData {
 public:
  /// `SourceError` is thrown when the extract exceeds the limits, with the name of the file.
  OsmData(const Limits& limits, std::string file);

  /// Later objects belong to another file.
  void beginFile(std::string file) { file_ = std::move(file); }
  const std::string& file() const { return file_; }

  /// Nodes without a position on Earth are left out.
  void addNode(std::int64_t id, double longitude, double latitude, OsmTags tags);
  void addWay(OsmWay way);
  /// A way as the member of a relation repeats it, without tags. One that was added by itself
  /// counts.
  void addMemberWay(OsmWay way);
  void addRelation(OsmRelation relation);
  void finish();

  const std::vector<OsmNode>& nodes() const { return nodes_; }
  const std::vector<OsmWay>& ways() const { return ways_; }
  const std::vector<OsmRelation>& relations() const { return relations_; }

  // These return null for an unknown identifier. Call them after `finish`.
  const OsmNode* node(std::int64_t id) const;
  const OsmWay* way(std::int64_t id) const;

  /// The identifier of a node that a format does not name, made from its position. It is below all
  /// that OpenStreetMap and its editors use.
  static std::int64_t unnamedNode(OsmPosition position);
  /// "node/4711", or "node/at-57329245-451571099" for an unnamed one.
  static std::string nodeText(const OsmNode& node);

  /// Whether the map of OpenStreetMap may have objects of the extract. Those that were only drawn
  /// in an editor have negative identifiers. If there are no identifiers at all, nobody knows.
  bool isPublished() const;

  /// Keeps a text as long as the extract.
  std::string_view keep(std::string_view text) { return texts_.keep(text); }

 private:
  void nameNodes();
  void takeLevelsOfRelations();
  // Throws if the extract has too many positions and members, or too much text.
  void count(std::size_t number, const OsmTags& tags);

  TextPool texts_;
  std::deque<OsmTags> nodeTags_;  // of the nodes that have any; equal neighbors share them
  std::vector<OsmNode> nodes_;
  std::vector<OsmWay> ways_;
  std::vector<OsmWay> memberWays_;
  bool hasUnnamedNodes_ = false;  // of ways
  std::vector<OsmRelation> relations_;
  std::string file_;
  std::size_t greatestCount_;
  std::size_t greatestBytes_;
  std::size_t count_ = 0;
  std::size_t bytes_ = 0;
};

/// Converts degrees to a position. Returns false if there is no such position on Earth.
bool toOsmPosition(double longitude, double latitude, OsmPosition& position);

}  // namespace orivanta::importer

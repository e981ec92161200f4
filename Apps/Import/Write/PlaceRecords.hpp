// The records of places, categories and polygons of an imported building.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Apps/Import/PackageLayout.hpp"

namespace orivanta::importer {

/// The members "id", "name", "names" and "nameGenerated".
boost::json::object namedRecord(const std::string& id, const Names& names);

/// Finds the nodes that belong to something, in the order of the network. Doors and way
/// points without a path, and the inner nodes of such rooms, are no part of the package if no place
/// needs them.
class NodeLookup {
 public:
  explicit NodeLookup(const Building& building);

  /// Whether each node of the network is part of the package.
  const std::vector<bool>& written() const { return written_; }

  /// The nodes of this kind of a door, an area, a place or a connector.
  std::vector<const Node*> of(NodeKind kind, const std::string& owner) const;
  /// The nodes at the doors of an area.
  std::vector<const Node*> doorsOf(const Area& area) const;

 private:
  std::vector<bool> written_;
  std::map<std::pair<NodeKind, std::string>, std::vector<const Node*>> nodes_;
  std::map<std::string, std::vector<const Door*>> doors_;  // by area
};

/// Collects the identifiers of categories that records refer to.
class UsedCategories {
 public:
  /// Returns the identifier of the category in the package.
  std::string use(const std::string& value);
  std::string useId(std::string_view category);

  /// The records of the categories and of their ancestors. `language` is that of the names.
  boost::json::array records(const std::string& language) const;

 private:
  std::set<std::string> used_;                                          // identifiers of the table
  std::map<std::string, std::pair<std::string, std::string>> unknown_;  // id to parent and name
};

/// The contents of files, an array with one record per line.
std::string polygonRecords(const PackageLayout& layout, const NodeLookup& nodes);
std::string locationRecords(const PackageLayout& layout, const NodeLookup& nodes,
                            UsedCategories& categories);

}  // namespace orivanta::importer

// Applies corrections to what a reader has read.
#pragma once

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/value.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Fixes/IdIndex.hpp"

namespace orivanta::importer {

/// Takes time proportional to the number of records and of corrections.
class Corrector {
 public:
  /// All arguments must outlive the object. `file` is the name of the file, for findings.
  Corrector(Building& building, const std::string& file, Findings& findings);

  /// Applies what is known about the record `id`. Returns false if there is no such record.
  bool apply(const std::string& id, const boost::json::object& corrections);

  /// Removes the records that are to be ignored. To be called once, after all corrections.
  void finish();

 private:
  bool exists() const;
  std::vector<Area*> areasOf(const std::string& id);
  std::vector<Place*> placesMeant();
  void makePlaceOf(Area& area);
  std::optional<Point> pointOf(const boost::json::object& object) const;
  void addDoor(const Area& area, Point position, std::vector<std::string> areas);
  void addEnd(const boost::json::value& end, ConnectorHint& hint);

  void applyMember(std::string_view key, const boost::json::value& value);
  void applyKind(const boost::json::value& value);
  void applyName(const boost::json::value& value);
  void applyDoor(const boost::json::value& value);
  void applyJoins(const boost::json::value& value);
  void complain(std::string_view field, std::string_view what);

  Building& building_;
  const std::string& file_;
  Findings& findings_;
  IdIndex storeys_;
  IdIndex areas_;
  IdIndex doors_;
  IdIndex lines_;
  IdIndex places_;
  IdIndex hints_;
  IdIndex links_;
  std::string id_;  // the record to correct
  std::set<std::string> ignored_;
};

}  // namespace orivanta::importer

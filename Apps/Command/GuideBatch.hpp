// Guided requests in a batch: plans with instructions, and instructions for given paths.
#pragma once

#include <boost/json/object.hpp>
#include <map>
#include <memory>
#include <string>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Narrator.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

/// Keeps a reference to a loaded venue, which must not change. The guide is created at the first
/// request. Not thread-safe.
class GuideBatch {
 public:
  explicit GuideBatch(const Venue& venue) : venue_(venue) {}

  /// Returns whether a request asks for instructions: whether it has a member such as "guide",
  /// "profile" or "via".
  static bool isGuided(const RawData& request);

  /// Answers a request as `planning::planJson` does. A list of nodes in "from" or "to" is passed in
  /// `from` and `to`; otherwise these are empty, and the request has "fromLocation", "toLocation"
  /// or a text under "from" or "to". Throws `planning::QueryError`.
  boost::json::object answer(const RawData& request, const NodeList& from, const NodeList& to);

  /// Describes a given path. Throws `planning::QueryError` if its nodes are not connected.
  boost::json::object describe(const RawData& request, const NodeList& path);

 private:
  const guidance::Guide& guide();
  const guidance::Narrator& narrator(const RawData& request);

  const Venue& venue_;
  std::shared_ptr<const guidance::Guide> guide_;
  std::map<std::string, guidance::Narrator> narrators_;
};

}  // namespace orivanta::command

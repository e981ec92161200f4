// Computes many routes through one venue. Reads one JSON request per line and writes one answer per
// line.
//
//   {"id": 7, "from": ["n1", "n2"], "to": ["n9"]} {"id":7,"path":["n2","n5","n9"],"weight":3.5}
//   {"fromLocation": "shop-1", "toLocation": "shop-2"}  {"id":null,"path":null,"weight":null}
//   {"id": "x", "from": ["n1"]}                         {"id":"x","error":"..."}
#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

class GuideBatch;

/// Keeps a reference to a loaded venue, which must not change. Not thread-safe.
class BatchRouter {
 public:
  explicit BatchRouter(const Venue& venue);
  ~BatchRouter();

  /// Returns the answer to one request, without a line break. "from" and "to" contain identifiers
  /// of nodes, "fromLocation" and "toLocation" the identifier of a location; each end has one of
  /// the two. "id" is copied to the answer as it is written. A weight beyond the range of a double
  /// is written as 1e999. An invalid request is answered with an error. A request with "guide",
  /// "path" or another member of guidance is answered as `GuideBatch` describes.
  std::string answer(std::string_view line) const;

 private:
  NodeList side(const RawData& request, const std::string& name) const;
  NodeList nodesIn(const RawData& list, const std::string& name) const;
  std::string route(const RawData& request) const;
  std::string guided(const RawData& request) const;

  const Venue& venue_;
  std::unique_ptr<GuideBatch> guide_;
  std::unordered_map<std::string_view, std::shared_ptr<Node>> nodes_;
  std::unordered_map<std::string_view, std::shared_ptr<Location>> locations_;
  std::unordered_map<const Node*, std::string> quotedIds_;
};

/// Answers each line that is not blank as soon as it is read, until the stream ends. `write`
/// receives each answer with its line break.
void answerLines(std::istream& requests, const BatchRouter& router,
                 const std::function<void(std::string_view)>& write);

/// Returns the text of a top-level member of a JSON object as it is written, or an empty text if
/// there is no such member. If several members have this key, the last one counts, as in `RawData`.
/// `object` must be valid JSON.
std::string_view rawMember(std::string_view object, std::string_view key);

}  // namespace orivanta::command

// Many routes through one venue: a request on each line of JSON, an answer on each line.
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

/// Refers to the venue, which has been loaded and stays as it is. Not for several threads at once.
class BatchRouter {
 public:
  explicit BatchRouter(const Venue& venue);

  /// The answer to one request, without a line break. "from" and "to" hold identifiers of nodes,
  /// "fromLocation" and "toLocation" the identifier of a location; each side has one of the two.
  /// "id" is echoed just as it is written. A weight beyond the doubles reads 1e999. A line that is
  /// no such request is answered by an error.
  std::string answer(std::string_view line) const;

 private:
  NodeList side(const RawData& request, const std::string& name) const;
  std::string route(const RawData& request) const;

  const Venue& venue_;
  std::unordered_map<std::string_view, std::shared_ptr<Node>> nodes_;
  std::unordered_map<std::string_view, std::shared_ptr<Location>> locations_;
  std::unordered_map<const Node*, std::string> quotedIds_;
};

/// Answers every line that is not blank as soon as it is read, until the stream ends. `write` gets
/// each answer with its line break.
void answerLines(std::istream& requests, const BatchRouter& router,
                 const std::function<void(std::string_view)>& write);

/// The text of a top-level member of a JSON object as it is written; of several the last, as for
/// `RawData`. Empty when there is none. `object` is valid JSON.
std::string_view rawMember(std::string_view object, std::string_view key);

}  // namespace orivanta::command

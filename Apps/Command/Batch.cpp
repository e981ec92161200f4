#include "Apps/Command/Batch.hpp"

#include <fmt/format.h>

#include <boost/json/value.hpp>
#include <stdexcept>
#include <utility>

#include "Apps/Command/GuideBatch.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Text/Json.hpp"
#include "Source/Guidance/PathWalk.hpp"
#include "Source/Location.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/Venue.hpp"

namespace orivanta::command {

namespace {

constexpr std::string_view whitespace = " \t\n\r";

class RequestError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Return the position after the string or the value that begins at `start` in valid JSON text.
std::size_t endOfString(std::string_view text, std::size_t start) {
  std::size_t end = start + 1;
  while (text[end] != '"') end += text[end] == '\\' ? 2 : 1;
  return end + 1;
}

std::size_t endOfValue(std::string_view text, std::size_t start) {
  if (text[start] == '"') return endOfString(text, start);
  if (text[start] != '{' && text[start] != '[') return text.find_first_of(",}] \t\n\r", start);
  std::size_t depth = 0;
  std::size_t end = start;
  do {
    const char character = text[end];
    if (character == '{' || character == '[') ++depth;
    if (character == '}' || character == ']') --depth;
    end = character == '"' ? endOfString(text, end) : end + 1;
  } while (depth > 0);
  return end;
}

bool isKey(std::string_view quoted, std::string_view key) {
  if (quoted.find('\\') == std::string_view::npos)
    return quoted.substr(1, quoted.size() - 2) == key;
  const auto parsed = RawData::parse(fmt::format("[{}]", quoted));
  return parsed && parsed->arrayValue().front().string() == key;
}

template <class Record>
const std::shared_ptr<Record>& known(
    const std::unordered_map<std::string_view, std::shared_ptr<Record>>& records,
    const RawData& identifier, const char* kind, const std::string& member) {
  const auto id = identifier.string();
  if (!id)
    throw RequestError(fmt::format("\"{}\" must contain the identifier of a {}", member, kind));
  const auto entry = records.find(*id);
  if (entry == records.end()) throw RequestError(fmt::format("unknown {} \"{}\"", kind, *id));
  return entry->second;
}

}  // namespace

std::string_view rawMember(std::string_view object, std::string_view key) {
  std::string_view member;
  std::size_t position = object.find('{') + 1;
  for (;;) {
    position = object.find_first_not_of(" \t\n\r,", position);
    if (object[position] == '}') return member;
    const std::size_t keyEnd = endOfString(object, position);
    const std::size_t start = object.find_first_not_of(" \t\n\r:", keyEnd);
    const std::size_t end = endOfValue(object, start);
    if (isKey(object.substr(position, keyEnd - position), key))
      member = object.substr(start, end - start);
    position = end;
  }
}

BatchRouter::BatchRouter(const Venue& venue)
    : venue_(venue), guide_(std::make_unique<GuideBatch>(venue)) {
  for (const auto& node : *venue.nodes) {
    nodes_.emplace(*node->id, node);
    quotedIds_.emplace(node.get(), text::jsonString(*node->id));
  }
  for (const auto& location : *venue.locations) locations_.emplace(*location->id, location);
}

BatchRouter::~BatchRouter() = default;

NodeList BatchRouter::side(const RawData& request, const std::string& name) const {
  const RawData list = request[name];
  const RawData place = request[name + "Location"];
  const std::string choice = fmt::format("\"{0}\" or \"{0}Location\"", name);
  if (list.data() && place.data()) throw RequestError("specify either " + choice + ", not both");
  if (place.data()) return known(locations_, place, "location", name + "Location")->nodes;
  if (!list.data()) throw RequestError("missing " + choice);
  if (!list.data()->is_array())
    throw RequestError(fmt::format("\"{}\" must be a list of node identifiers", name));
  return nodesIn(list, name);
}

std::string BatchRouter::route(const RawData& request) const {
  const NodeList starts = side(request, "from");
  const NodeList destinations = side(request, "to");
  const NavigationGraph& graph = *venue_.navigationGraph;
  auto path = AStar(starts, destinations, graph);
  if (!path) return R"("path":null,"weight":null)";
  const PathWalk walk(std::move(*path), graph);
  std::string text = R"("path":)";
  char separator = '[';
  for (const auto& node : walk.path()) {
    text += separator;
    text += quotedIds_.at(node.get());
    separator = ',';
  }
  return text + R"(],"weight":)" + text::jsonNumber(walk.weight());
}

NodeList BatchRouter::nodesIn(const RawData& list, const std::string& name) const {
  NodeList nodes;
  for (const RawData& element : list.arrayValue())
    nodes.push_back(known(nodes_, element, "node", name));
  return nodes;
}

// Answers a request with instructions: the members of the result, without the outer braces.
std::string BatchRouter::guided(const RawData& request) const {
  const auto listed = [&](const char* name) {
    const RawData list = request[name];
    return list.data() && list.data()->is_array() ? nodesIn(list, name) : NodeList();
  };
  const boost::json::object result = request["path"].data()
                                         ? guide_->describe(request, listed("path"))
                                         : guide_->answer(request, listed("from"), listed("to"));
  const std::string text = text::jsonText(result);
  return text.substr(1, text.size() - 2);
}

std::string BatchRouter::answer(std::string_view line) const {
  std::string id = "null";
  try {
    const auto request = RawData::parse(line);
    if (!request || !request->data()->is_object())
      throw RequestError("the line is not a JSON object");
    if (const auto given = rawMember(line, "id"); !given.empty())
      id = text::withControlsEscaped(given);
    return fmt::format(R"({{"id":{},{}}})", id,
                       GuideBatch::isGuided(*request) ? guided(*request) : route(*request));
  } catch (const RequestError& error) {
    return fmt::format(R"({{"id":{},"error":{}}})", id, text::jsonString(error.what()));
  } catch (const planning::QueryError& error) {
    return fmt::format(R"({{"id":{},"error":{}}})", id, text::jsonString(error.what()));
  }
}

void answerLines(std::istream& requests, const BatchRouter& router,
                 const std::function<void(std::string_view)>& write) {
  std::string line;
  while (std::getline(requests, line)) {
    if (line.find_first_not_of(whitespace) == std::string::npos) continue;
    write(router.answer(line) + '\n');
  }
}

}  // namespace orivanta::command

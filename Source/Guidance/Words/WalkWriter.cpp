#include "Source/Guidance/Words/WalkWriter.hpp"

#include <unordered_set>
#include <utility>
#include <vector>

#include "Source/Guidance/Words/MessageKeys.hpp"

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostPassed = 2;
constexpr std::size_t mostRooms = 2;  // by name; of further ones, the number is told

// The keys of passed places name their sides if all of these are known.
std::string sidesKey(const std::vector<std::pair<std::string, Side>>& passed) {
  std::string key;
  for (const auto& [name, side] : passed) {
    if (side != Side::left && side != Side::right) return passed.size() == 1 ? ".one" : ".two";
    key += sideKey(side);
  }
  return key;
}

}  // namespace

std::string WalkWriter::text() const {
  std::vector<std::pair<std::string, Side>> passed;
  for (const Passed& candidate : step_.passed) {
    std::string name = placeName(messages_, candidate.place, candidate.category);
    if (!name.empty()) passed.emplace_back(std::move(name), candidate.side);
    if (passed.size() == mostPassed) break;
  }
  const std::string length =
      itinerary_.hasScale ? messages_.lengthWithin(step_.metersToNext) : std::string();
  if (!passed.empty()) {
    const std::string key = (length.empty() ? "pass" : "walk.past") + sidesKey(passed);
    const std::string text = messages_.format(
        key, {{"length", length}, {"place", passed.front().first}, {"other", passed.back().first}});
    return messages_.sentences(text, through("through.also", length));
  }
  const std::string text = through(length.empty() ? "through" : "walk.through", length);
  return text.empty() && !length.empty() ? messages_.format("walk", {{"length", length}}) : text;
}

// The rooms on the way, or an empty text if there are none.
std::string WalkWriter::through(const std::string& key, const std::string& length) const {
  std::vector<std::string> rooms;
  std::unordered_set<std::string> known;  // a room may be entered again
  for (const auto& room : step_.through) {
    std::string name = placeName(messages_, room);
    if (!name.empty() && known.insert(name).second) rooms.push_back(std::move(name));
  }
  if (rooms.empty()) return {};
  if (rooms.size() == 1)
    return messages_.format(key + ".one", {{"length", length}, {"place", rooms[0]}});
  const Arguments arguments{{"length", length}, {"place", rooms[0]}, {"other", rooms[1]}};
  return rooms.size() <= mostRooms
             ? messages_.format(key + ".two", arguments)
             : messages_.format(key + ".more", "rooms", rooms.size() - mostRooms, arguments);
}

}  // namespace orivanta::guidance

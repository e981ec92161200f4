#include "Apps/Import/Read/IndoorGml/GmlKinds.hpp"

#include <algorithm>
#include <array>

#include "Apps/Import/Read/IndoorGml/GmlStoreys.hpp"
#include "Apps/Import/Read/JsonMembers.hpp"

namespace orivanta::importer {

namespace {

struct Word {
  std::string_view text;
  AreaKind kind;
};

// What descriptions say, and, up to "concourse", names.
constexpr std::array words = {
    Word{"escalator", AreaKind::escalator}, Word{"에스컬레이터", AreaKind::escalator},
    Word{"elevator", AreaKind::elevator},   Word{"엘리베이터", AreaKind::elevator},
    Word{"stair", AreaKind::stairs},        Word{"계단", AreaKind::stairs},
    Word{"階段", AreaKind::stairs},         Word{"corridor", AreaKind::walkway},
    Word{"hallway", AreaKind::walkway},     Word{"복도", AreaKind::walkway},
    Word{"廊下", AreaKind::walkway},        Word{"passage", AreaKind::walkway},
    Word{"lobby", AreaKind::walkway},       Word{"concourse", AreaKind::walkway},
    Word{"lift", AreaKind::elevator},       Word{"hall", AreaKind::walkway},
    Word{"ramp", AreaKind::ramp},           Word{"room", AreaKind::room},
};

constexpr std::size_t wordsInNames = 14;  // up to "concourse"

std::optional<AreaKind> kindOfWord(const std::string& text) {
  if (text.empty()) return std::nullopt;
  for (const Word& word : words)
    if (text.starts_with(word.text)) return word.kind;
  return std::nullopt;
}

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz";

struct LastWord {
  std::string_view text;  // of the name; empty if there is none
  std::size_t count = 0;  // of words with two letters
};

LastWord lastWordOf(const std::string& name) {
  constexpr std::size_t shortestWord = 4;
  std::string_view last;
  std::size_t count = 0;
  for (std::size_t at = name.find_first_of(letters); at != name.npos;
       at = name.find_first_of(letters, at)) {
    const std::size_t end = std::min(name.find_first_not_of(letters, at), name.size());
    if (end - at >= shortestWord) last = std::string_view(name).substr(at, end - at);
    if (end - at > 1) ++count;
    at = end;
  }
  return {last, count};
}

// The last word that is no number or letter tells what it is: an "Elevator Lobby 2" is a lobby, and
// an "Upstairs Cafe" is none of these. Scripts without blanks have the word anywhere. `alone`:
// there must be no other words.
std::optional<AreaKind> kindOfName(const std::string& name, bool alone) {
  const auto [last, count] = lastWordOf(name);
  if (alone && count > 1) return std::nullopt;
  if (last == "lift") return AreaKind::elevator;
  for (std::size_t each = 0; each < wordsInNames; ++each) {
    const std::string_view word = words[each].text;
    const bool isAscii = letters.find(word.front()) != letters.npos;
    if (isAscii ? last.starts_with(word) : name.find(word) != name.npos) return words[each].kind;
  }
  return std::nullopt;
}

std::string wordOf(const GmlSpace& cell) {
  for (const char* key : {"indoor", "desc", "type", "usage", "room"})
    if (std::string word = lowerCase(descriptionValue(cell.description, key)); !word.empty())
      return word;
  return {};
}

}  // namespace

bool isGmlDoor(const GmlSpace& cell) {
  const std::string word = wordOf(cell);
  if (cell.element == "ConnectionSpace" || cell.element == "AnchorSpace" || word == "door" ||
      word == "entrance" || lowerCase(cell.function) == "door")
    return true;
  // Where all cells have the same element, names tell.
  return cell.element == "CellSpace" && !kindOfWord(word) &&
         lastWordOf(lowerCase(cell.name)).text == "door";
}

std::optional<AreaKind> describedKind(const GmlSpace& cell) {
  if (const auto kind = kindOfWord(wordOf(cell))) return kind;
  if (cell.function == "1110") return AreaKind::elevator;
  if (cell.function == "1120") return AreaKind::stairs;
  if (cell.function == "1130") return AreaKind::escalator;
  if (const auto kind = kindOfWord(lowerCase(cell.function))) return kind;
  // The element tells more than a name, unless the name is nothing but the word.
  return kindOfName(lowerCase(cell.name), cell.element == "GeneralSpace");
}

std::optional<AreaKind> statedKind(const GmlSpace& cell) {
  if (const auto kind = describedKind(cell)) return kind;
  if (cell.element == "GeneralSpace") return AreaKind::room;
  if (cell.element == "TransitionSpace") return AreaKind::walkway;
  return std::nullopt;
}

std::string gmlCategory(const GmlSpace& cell) {
  std::string word = wordOf(cell);
  return word.empty() ? lowerCase(cell.element) : word;
}

}  // namespace orivanta::importer

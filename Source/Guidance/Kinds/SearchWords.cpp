#include "Source/Guidance/Kinds/SearchWords.hpp"

#include <algorithm>
#include <utility>

#include "Source/Guidance/Kinds/SearchTopics.hpp"

namespace orivanta {

namespace {

std::string withoutSpaces(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  return text;
}

std::vector<std::string> emergencyWordsWithoutSpaces() {
  auto words = emergencyExitWords();
  for (std::string& word : words) word = withoutSpaces(std::move(word));
  return words;
}

}  // namespace

std::vector<std::string> searchWordsOf(PlaceKind kind) {
  return SearchTopics::instance().phrasesOf(&kind);
}

std::vector<std::string> emergencyExitWords() {
  return SearchTopics::instance().phrasesOf(nullptr);
}

bool namesEmergencyExit(std::string_view form) {
  static const std::vector<std::string> words = emergencyWordsWithoutSpaces();
  const std::string text = withoutSpaces(std::string(form));
  return std::any_of(words.begin(), words.end(),
                     [&](const std::string& word) { return text.find(word) != std::string::npos; });
}

}  // namespace orivanta

#include "Apps/Import/Read/FeatureTexts.hpp"

#include <array>
#include <utility>

namespace orivanta::importer {

namespace {

constexpr std::string_view whitespace = " \t\r\n";

// Characters as a table, in which a search takes a fraction of the time of `find_first_of`.
class Characters {
 public:
  constexpr explicit Characters(std::string_view all) {
    for (const char one : all) contains_[static_cast<unsigned char>(one)] = true;
  }

  // The position of the first of them; the size of the text if there is none.
  std::size_t findIn(std::string_view text, std::size_t from) const {
    while (from < text.size() && !contains_[static_cast<unsigned char>(text[from])]) ++from;
    return from;
  }

 private:
  std::array<bool, 256> contains_{};
};

constexpr Characters inStrings("\"\\");
constexpr Characters inElements("\"{}[]");
constexpr Characters betweenElements("\"{}[],");

class Splitter {
 public:
  Splitter(std::string_view text, std::size_t most, std::string_view array)
      : text_(text), most_(most), key_('"' + std::string(array) + '"') {}

  FeatureTexts split() {
    skipWhitespace();
    if (!atEnd() && text_[at_] == '[') {
      ++at_;
      splitArray();
    } else {
      findArray();
    }
    return std::move(result_);
  }

 private:
  bool atEnd() const { return at_ >= text_.size(); }

  void skipWhitespace() {
    at_ = text_.find_first_not_of(whitespace, at_);
    if (at_ == std::string_view::npos) at_ = text_.size();
  }

  // From an opening quotation mark to behind the closing one.
  void skipString() {
    at_ = inStrings.findIn(text_, at_ + 1);
    while (!atEnd() && text_[at_] == '\\') at_ = inStrings.findIn(text_, at_ + 2);
    if (!atEnd()) ++at_;
  }

  // Looks for the array among the members of the root.
  void findArray() {
    int depth = 0;
    while (!atEnd()) {
      const char character = text_[at_];
      if (character == '"') {
        const std::size_t start = at_;
        skipString();
        if (depth == 1 && text_.substr(start, at_ - start) == key_ && enterArray())
          return splitArray();
        continue;
      }
      if (character == '{' || character == '[') ++depth;
      if (character == '}' || character == ']') --depth;
      ++at_;
    }
  }

  // From behind a key to behind the bracket of its array; stays if there is none.
  bool enterArray() {
    const std::size_t colon = text_.find_first_not_of(whitespace, at_);
    if (colon == std::string_view::npos || text_[colon] != ':') return false;
    const std::size_t bracket = text_.find_first_not_of(whitespace, colon + 1);
    if (bracket == std::string_view::npos || text_[bracket] != '[') return false;
    at_ = bracket + 1;
    return true;
  }

  void splitArray() {
    result_.found = true;
    result_.frame = text_.substr(0, at_);
    result_.frameStart = at_;
    std::size_t start = at_;
    int depth = 0;
    while (!result_.tooMany) {
      at_ = (depth == 0 ? betweenElements : inElements).findIn(text_, at_);
      if (atEnd()) break;
      const char character = text_[at_];
      if (character == '"') {
        skipString();
        continue;
      }
      if (character == '{' || character == '[') ++depth;
      if (character == '}' || character == ']') --depth;
      if (depth < 0 || (depth == 0 && character == ',')) addElement(start);
      if (depth < 0) {
        result_.frame += text_.substr(at_);
        return;
      }
      ++at_;
    }
    result_.cut = !result_.tooMany;
  }

  // Adds the text from `start` to here, and moves `start` behind it.
  void addElement(std::size_t& start) {
    const std::size_t first = text_.find_first_not_of(whitespace, start);
    if (first < at_) {
      const std::size_t last = text_.find_last_not_of(whitespace, at_ - 1);
      result_.tooMany = result_.features.size() >= most_;
      if (!result_.tooMany) result_.features.push_back(text_.substr(first, last + 1 - first));
    }
    start = at_ + 1;
  }

  std::string_view text_;
  std::size_t most_;
  std::string key_;
  std::size_t at_ = 0;
  FeatureTexts result_;
};

}  // namespace

FeatureTexts splitFeatures(std::string_view text, std::size_t most, std::string_view array) {
  return Splitter(text, most, array).split();
}

}  // namespace orivanta::importer

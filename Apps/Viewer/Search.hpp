// Finds the places of a venue while somebody types.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::viewer {

/// A text for comparison: without case, accents and other marks that are often left out, compatible
/// forms made one; marks that make another letter (of Indic and Thai scripts, of kana) stay. Runs
/// of anything but letters and digits become one blank.
std::string searchForm(std::string_view text);

/// How well a name answers what was typed; smaller is better.
enum class Match {
  beginning,  ///< the name begins with it
  word,       ///< each typed word begins one of the name's
  inside,     ///< each is somewhere in the name
  near,       ///< with a letter or two wrong, missing or too many
  none
};

/// Both in their search form.
Match match(std::string_view name, std::string_view typed);

/// Made once for a venue; keeps its locations.
class SearchIndex {
 public:
  explicit SearchIndex(const Venue& venue);

  /// Places that have somewhere to go, best first, then by name; names go before categories. All of
  /// them by name for a text without letters or digits.
  std::vector<std::shared_ptr<Location>> find(std::string_view typed, std::size_t most = 60) const;

 private:
  struct Entry {
    std::shared_ptr<Location> location;
    std::string name;
    std::vector<std::string> categories;
  };

  static int rank(const Entry& entry, std::string_view typed);

  std::vector<Entry> entries_;  // by name
};

}  // namespace orivanta::viewer

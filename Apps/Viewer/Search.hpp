// Finds the places of a venue by what somebody types.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::viewer {

/// A text for comparison: without case, accents and other marks that are often left out, compatible
/// forms made one; marks that make another letter (of Indic and Thai scripts, of kana) stay. Runs
/// of anything but letters and digits become one blank. Of a long text only the beginning counts,
/// about 300 bytes.
std::string searchForm(std::string_view text);

/// Whether the first of two texts in their search form comes before the second in the order in
/// which people count: a run of digits counts as the number that it is, so that "1f 14" comes
/// before "1f 139".
bool comesBefore(std::string_view left, std::string_view right);

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

/// Places that belong together in a list.
struct PlaceGroup {
  std::string title;  ///< of their category; may be empty
  std::vector<std::shared_ptr<Location>> places;
};

/// Asked now and then during long work; true ends it, with whatever it has come to.
using IsCancelled = std::function<bool()>;

/// Made once for the places of a venue, which it keeps.
class SearchIndex {
 public:
  explicit SearchIndex(const std::vector<std::shared_ptr<Location>>& places,
                       const IsCancelled& isCancelled = neverCancelled);

  /// All places that answer, in one group: best first, then by name; names go before categories.
  /// Only places that have somewhere to go. For a text without letters or digits all places, a
  /// group for each category, by its name; those without a category come last.
  std::vector<PlaceGroup> find(std::string_view typed,
                               const IsCancelled& isCancelled = neverCancelled) const;

  static bool neverCancelled() { return false; }

 private:
  struct Entry {
    std::shared_ptr<Location> place;
    std::string name;
    std::vector<std::size_t> categories;  // into the list; the first one is the group's
  };
  struct CategoryEntry {
    std::string name;
    std::string title;
  };
  struct Query;

  std::vector<PlaceGroup> byCategory() const;
  int rank(const Entry& entry, const Query& query) const;

  std::vector<CategoryEntry> categories_;
  std::vector<Entry> entries_;           // by name
  std::vector<std::size_t> byCategory_;  // into the entries, by category, then by name
};

}  // namespace orivanta::viewer

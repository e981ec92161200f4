#include "Source/Guidance/FoundPlace.hpp"

#include <array>
#include <cstddef>

namespace orivanta {

std::string_view wordOf(PlaceMatch match) {
  constexpr std::array<std::string_view, 8> words{"name",   "kind",     "beginning",   "word",
                                                  "inside", "category", "description", "near"};
  return words[static_cast<std::size_t>(match)];
}

}  // namespace orivanta

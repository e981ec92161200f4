#include "Apps/Command/Suggestion.hpp"

#include <fmt/format.h>

#include "Platform/Foundation/DisplayText.hpp"
#include "Source/Guidance/NameMatch.hpp"
#include "Source/Guidance/TextFolding.hpp"

namespace orivanta::command {

std::string didYouMean(std::string_view word, const std::vector<std::string>& known) {
  constexpr std::size_t shortest = 3;
  if (searchForm(word).size() < shortest) return {};
  const TypedText typed(word);
  for (const NameMatch wanted : {NameMatch::beginning, NameMatch::near})
    for (const std::string& candidate : known)
      if (typed.match(searchForm(candidate)) == wanted)
        return fmt::format(" Did you mean \"{}\"?", foundation::printable(candidate));
  return {};
}

}  // namespace orivanta::command

#include "Source/Guidance/Words/Placeholders.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "Platform/Foundation/Sorting.hpp"

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostPlaceholders = 16;

tl::unexpected<foundation::Error> invalid(std::string_view key, std::string_view what) {
  return foundation::failure("messages", 0, fmt::format("The message {} has {}.", key, what));
}

// The placeholders of all forms of a message together.
foundation::Result<std::vector<std::string>> placeholdersOfAll(
    const std::vector<std::string>& forms) {
  std::vector<std::string> all;
  for (const std::string& form : forms) {
    auto names = placeholdersOf(form);
    if (!names) return names;
    all.insert(all.end(), names->begin(), names->end());
  }
  foundation::sort(all.begin(), all.end());
  return all;
}

}  // namespace

foundation::Result<std::vector<std::string>> placeholdersOf(std::string_view text) {
  std::vector<std::string> names;
  while (true) {
    const std::size_t brace = text.find_first_of("{}");
    if (brace == std::string_view::npos) break;
    const std::string_view from = text.substr(brace);
    text = from.substr(1);
    const std::size_t end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz");
    const bool wellFormed = from.front() == '{' && end != 0 && end != std::string_view::npos &&
                            text[end] == '}' && names.size() < mostPlaceholders;
    if (!wellFormed) return foundation::failure("messages", 0, "Invalid placeholders.");
    names.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  foundation::sort(names.begin(), names.end());
  return names;
}

foundation::Result<void> checkMessage(const std::string& key, const std::vector<std::string>& forms,
                                      const std::vector<std::string>* original,
                                      std::size_t pluralForms) {
  const auto names = placeholdersOfAll(forms);
  if (!names) return invalid(key, "invalid placeholders");
  if (original == nullptr) return {};
  if (forms.size() != (original->size() == 1 ? 1 : pluralForms))
    return invalid(key, "a wrong number of forms");
  const auto known = placeholdersOfAll(*original);
  const bool allKnown = std::all_of(names->begin(), names->end(), [&](const std::string& name) {
    return std::binary_search(known->begin(), known->end(), name);
  });
  if (!allKnown) return invalid(key, "unknown placeholders");
  return {};
}

}  // namespace orivanta::guidance

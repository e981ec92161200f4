#include "Source/Guidance/Words/LanguageTags.hpp"

#include <algorithm>
#include <array>

#include "Platform/Foundation/AsciiCase.hpp"
#include "Platform/Foundation/DecimalNumbers.hpp"

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostBytes = 4096;

constexpr std::array<std::string_view, 15> rightToLeftLanguages{
    "ar", "arc", "ckb", "dv", "fa", "he", "iw", "ks", "ps", "sd", "syr", "ug", "ur", "yi", "ji"};
constexpr std::array<std::string_view, 6> rightToLeftScripts{"Arab", "Hebr", "Thaa",
                                                             "Syrc", "Nkoo", "Adlm"};

// Removes the text up to the next separator, and returns it without blanks.
std::string_view take(std::string_view& rest, char separator) {
  std::string_view part = rest.substr(0, rest.find(separator));
  rest.remove_prefix(std::min(rest.size(), part.size() + 1));
  while (!part.empty() && (part.front() == ' ' || part.front() == '\t')) part.remove_prefix(1);
  while (!part.empty() && (part.back() == ' ' || part.back() == '\t')) part.remove_suffix(1);
  return part;
}

struct Preference {
  std::string_view tag;
  double weight = 1.0;
};

// Reads an element such as "de-AT;q=0.5". An invalid weight counts as 0.
Preference preferenceIn(std::string_view element) {
  Preference preference{take(element, ';')};
  const std::string_view parameter = take(element, ';');
  if (parameter.empty()) return preference;
  preference.weight = 0.0;
  if (parameter.starts_with("q=") || parameter.starts_with("Q=")) {
    double weight = 0.0;
    const std::string_view number = parameter.substr(2);
    const std::size_t length = foundation::readNumber(number, weight);
    if (length > 0 && length == number.size() && weight > 0.0 && weight <= 1.0)
      preference.weight = weight;
  }
  return preference;
}

const std::string* lookUp(std::string_view tag, const std::vector<std::string>& available) {
  while (!tag.empty()) {
    const auto found =
        std::find_if(available.begin(), available.end(), [&](const std::string& candidate) {
          return foundation::asciiEqualIgnoringCase(candidate, tag);
        });
    if (found != available.end()) return &*found;
    const std::size_t end = tag.rfind('-');
    tag = tag.substr(0, end == std::string_view::npos ? 0 : end);
  }
  return nullptr;
}

}  // namespace

std::string bestLanguage(std::string_view preferred, const std::vector<std::string>& available) {
  preferred = preferred.substr(0, mostBytes);
  const std::string* best = nullptr;
  double bestWeight = 0.0;
  while (!preferred.empty()) {
    const Preference preference = preferenceIn(take(preferred, ','));
    if (!(preference.weight > bestWeight)) continue;
    const std::string* found = lookUp(preference.tag, available);
    if (found == nullptr) continue;
    best = found;
    bestWeight = preference.weight;
  }
  return best == nullptr ? "en" : *best;
}

bool isRightToLeft(std::string_view tag) {
  const auto isOneOf = [](std::string_view subtag, const auto& list) {
    return std::any_of(list.begin(), list.end(), [&](std::string_view candidate) {
      return foundation::asciiEqualIgnoringCase(subtag, candidate);
    });
  };
  const bool byLanguage = isOneOf(take(tag, '-'), rightToLeftLanguages);
  while (!tag.empty() && tag.size() < mostBytes) {
    const std::string_view subtag = take(tag, '-');
    if (subtag.size() == 4 && subtag.front() > '9') return isOneOf(subtag, rightToLeftScripts);
  }
  return byLanguage;
}

}  // namespace orivanta::guidance

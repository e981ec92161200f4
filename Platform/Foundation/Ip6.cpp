#include "Platform/Foundation/Ip6.hpp"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "Platform/Foundation/UriText.hpp"

namespace orivanta::foundation {

using uriText::consistsOf;
using uriText::contains;
using uriText::takeUpTo;

namespace {

bool isOctet(std::string_view text) {
  if (text.empty() || text.size() > 3 || !consistsOf(text, uriText::digits)) return false;
  if (text.size() > 1 && text[0] == '0') return false;
  return text.size() < 3 || text <= "255";
}

unsigned number(std::string_view text, int base) {
  unsigned value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value, base);
  return value;
}

bool isIp4(std::string_view text) {
  if (std::count(text.begin(), text.end(), '.') != 3) return false;
  for (int i = 0; i < 4; ++i)
    if (!isOctet(takeUpTo('.', text))) return false;
  return true;
}

using Groups = std::vector<unsigned>;

// Reads groups of 16 bits that are separated by colons. The last part may be an IPv4 address, which
// counts as two groups. Returns nothing if the text has another form.
std::optional<Groups> readGroups(std::string_view text, bool mayEndInIp4) {
  Groups groups;
  for (bool isLast = text.empty(); !isLast;) {
    isLast = !contains(text, ':');
    std::string_view group = takeUpTo(':', text);
    if (isLast && mayEndInIp4 && isIp4(group)) {
      for (int i = 0; i < 2; ++i) {
        const unsigned high = number(takeUpTo('.', group), 10);
        groups.push_back(high << 8U | number(takeUpTo('.', group), 10));
      }
    } else {
      if (group.empty() || group.size() > 4 || !consistsOf(group, uriText::hexDigits))
        return std::nullopt;
      groups.push_back(number(group, 16));
    }
  }
  return groups;
}

}  // namespace

std::optional<std::vector<unsigned>> readIp6(std::string_view text) {
  constexpr std::size_t count = 8;
  const std::size_t gap = text.find("::");
  auto groups = readGroups(text.substr(0, gap), gap == text.npos);
  if (!groups) return std::nullopt;
  if (gap != text.npos) {
    const auto after = readGroups(text.substr(gap + 2), true);
    if (!after || groups->size() + after->size() >= count) return std::nullopt;
    groups->resize(count - after->size());
    groups->insert(groups->end(), after->begin(), after->end());
  }
  return groups->size() == count ? groups : std::nullopt;
}

}  // namespace orivanta::foundation

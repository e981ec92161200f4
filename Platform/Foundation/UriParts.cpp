#include "Platform/Foundation/UriParts.hpp"

#include <algorithm>
#include <cstddef>

#include "Platform/Foundation/Ip6.hpp"
#include "Platform/Foundation/UriText.hpp"

namespace orivanta::foundation {

using uriText::consistsOf;
using uriText::contains;
using uriText::digits;
using uriText::hexDigits;
using uriText::takeUpTo;

namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr std::string_view subDelimiters = "!$&'()*+,;=";

bool isUnreserved(char character) {
  return contains(letters, character) || contains(digits, character) || contains("-._~", character);
}

// Returns whether the text consists of unreserved characters, delimiters of components, escapes,
// and the characters of `others`.
bool isWellFormed(std::string_view text, std::string_view others) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      if (text.size() - i < 3 || !consistsOf(text.substr(i + 1, 2), hexDigits)) return false;
      i += 2;
    } else if (!isUnreserved(text[i]) && !contains(subDelimiters, text[i]) &&
               !contains(others, text[i])) {
      return false;
    }
  }
  return true;
}

bool isScheme(std::string_view text) {
  if (text.empty() || !contains(letters, text[0])) return false;
  return std::all_of(text.begin(), text.end(), [](char each) {
    return contains(letters, each) || contains(digits, each) || contains("+-.", each);
  });
}

bool isFutureIp(std::string_view text) {
  if (!text.starts_with('v')) return false;
  text.remove_prefix(1);
  const std::string_view version = takeUpTo('.', text);
  return !version.empty() && consistsOf(version, hexDigits) && !text.empty() &&
         !contains(text, '%') && isWellFormed(text, ":");
}

// Returns whether the authority is well-formed.
bool parseAuthority(UriParts& parts) {
  std::string_view rest = *parts.authority;
  if (contains(rest, '@')) {
    parts.userInfo = takeUpTo('@', rest);
    if (!isWellFormed(*parts.userInfo, ":")) return false;
  }
  if (rest.starts_with('[')) {
    rest.remove_prefix(1);
    if (!contains(rest, ']')) return false;
    parts.host = takeUpTo(']', rest);
    if (!readIp6(parts.host) && !isFutureIp(parts.host)) return false;
    if (!rest.empty() && !rest.starts_with(':')) return false;
    if (!rest.empty()) rest.remove_prefix(1);
  } else {
    parts.host = takeUpTo(':', rest);
    if (!isWellFormed(parts.host, "")) return false;
  }
  parts.port = rest;
  return consistsOf(parts.port, digits);
}

}  // namespace

std::optional<UriParts> parseUri(std::string_view text) {
  UriParts parts;
  if (const std::size_t hash = text.find('#'); hash != text.npos) {
    parts.fragment = text.substr(hash + 1);
    text = text.substr(0, hash);
  }
  if (const std::size_t mark = text.find('?'); mark != text.npos) {
    parts.query = text.substr(mark + 1);
    text = text.substr(0, mark);
  }
  if (contains(text.substr(0, text.find('/')), ':')) {
    parts.scheme = takeUpTo(':', text);
    if (!isScheme(parts.scheme)) return std::nullopt;
  }
  if (text.starts_with("//")) {
    const std::size_t end = std::min(text.find('/', 2), text.size());
    parts.authority = text.substr(2, end - 2);
    text.remove_prefix(end);
    if (!parseAuthority(parts)) return std::nullopt;
  }
  parts.path = text;
  const bool isValid = isWellFormed(parts.path, ":@/") &&
                       isWellFormed(parts.query.value_or(""), ":@/?") &&
                       isWellFormed(parts.fragment.value_or(""), ":@/?");
  return isValid ? std::optional(parts) : std::nullopt;
}

}  // namespace orivanta::foundation

#include "Apps/Server/UrlText.hpp"

#include <algorithm>

namespace orivanta::server {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isLetter(char character) {
  const char lower = static_cast<char>(character | 0x20);
  return lower >= 'a' && lower <= 'z';
}

// RFC 3986, section 2.3.
bool isUnreserved(char character) {
  return isLetter(character) || isDigit(character) ||
         std::string_view("-._~").find(character) != std::string_view::npos;
}

std::optional<unsigned> hexadecimalDigit(char character) {
  if (isDigit(character)) return static_cast<unsigned>(character - '0');
  const char lower = static_cast<char>(character | 0x20);
  if (lower >= 'a' && lower <= 'f') return static_cast<unsigned>(lower - 'a') + 10U;
  return std::nullopt;
}

// Decodes the "%XX" at `position`.
std::optional<char> escapeAt(std::string_view text, std::size_t position) {
  if (position + 2 >= text.size() || text[position] != '%') return std::nullopt;
  const auto high = hexadecimalDigit(text[position + 1]);
  const auto low = hexadecimalDigit(text[position + 2]);
  if (!high || !low) return std::nullopt;
  return static_cast<char>(*high << 4U | *low);
}

// Like `percentEncoded`, but keeps what is already encoded.
std::string percentEncodedRest(std::string_view text, std::string_view kept) {
  std::string encoded;
  for (std::size_t position = 0; position < text.size(); ++position) {
    const bool escape = escapeAt(text, position).has_value();
    encoded += escape ? "%" : percentEncoded(text.substr(position, 1), kept);
  }
  return encoded;
}

bool hasScheme(std::string_view reference) {
  const std::size_t colon = reference.find_first_of(":/?#");
  if (colon == std::string_view::npos || colon == 0 || reference[colon] != ':') return false;
  return isLetter(reference.front()) &&
         std::all_of(reference.begin(), reference.begin() + static_cast<std::ptrdiff_t>(colon),
                     [](char character) {
                       return isLetter(character) || isDigit(character) || character == '+' ||
                              character == '-' || character == '.';
                     });
}

std::vector<std::string_view> splitAt(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

std::optional<std::string> decodedQueryText(std::string_view text) {
  std::string withBlanks(text);
  std::replace(withBlanks.begin(), withBlanks.end(), '+', ' ');
  return percentDecoded(withBlanks);
}

bool parseQuery(std::string_view text, Target& target) {
  for (const std::string_view item : splitAt(text, '&')) {
    if (item.empty()) continue;
    const std::size_t equals = std::min(item.find('='), item.size());
    auto name = decodedQueryText(item.substr(0, equals));
    auto value = decodedQueryText(item.substr(std::min(equals + 1, item.size())));
    if (!name || !value) return false;
    target.query.emplace_back(std::move(*name), std::move(*value));
  }
  return true;
}

// Resolves the dot segments of a relative path; returns nothing if it leads out of the root.
std::optional<std::string> resolvedPath(std::string_view path) {
  std::vector<std::string_view> segments;
  for (const std::string_view segment : splitAt(path, '/')) {
    if (segment.empty() || segment == ".") continue;
    if (segment != "..") {
      segments.push_back(segment);
    } else if (segments.empty()) {
      return std::nullopt;
    } else {
      segments.pop_back();
    }
  }
  std::string resolved;
  for (const std::string_view segment : segments) {
    if (!resolved.empty()) resolved += '/';
    resolved += percentEncodedRest(segment, "!$&'()*+,;=:@");
  }
  return resolved;
}

}  // namespace

std::string percentEncoded(std::string_view bytes, std::string_view kept) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string encoded;
  for (const char character : bytes) {
    if (isUnreserved(character) || kept.find(character) != std::string_view::npos) {
      encoded += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      encoded += {'%', digits[byte >> 4U], digits[byte & 15U]};
    }
  }
  return encoded;
}

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (text[position] != '%') {
      decoded += text[position];
      continue;
    }
    const auto byte = escapeAt(text, position);
    if (!byte) return std::nullopt;
    decoded += *byte;
    position += 2;
  }
  return decoded;
}

std::optional<std::string> Target::queryValue(std::string_view name) const {
  for (const auto& [key, value] : query)
    if (key == name) return value;
  return std::nullopt;
}

std::optional<Target> parseTarget(std::string_view text) {
  if (const std::string_view scheme = "http://"; text.starts_with(scheme)) {
    text.remove_prefix(scheme.size());
    text.remove_prefix(std::min(text.find_first_of("/?"), text.size()));
    if (text.empty()) text = "/";
  }
  if (!text.starts_with('/')) return std::nullopt;
  const std::size_t question = std::min(text.find('?'), text.size());
  Target target;
  for (const std::string_view segment : splitAt(text.substr(1, question - 1), '/')) {
    auto decoded = percentDecoded(segment);
    if (!decoded) return std::nullopt;
    target.path.push_back(std::move(*decoded));
  }
  if (question < text.size() && !parseQuery(text.substr(question + 1), target)) return std::nullopt;
  return target;
}

bool isHost(std::string_view text) {
  if (text.empty() || text.size() > 260) return false;
  std::size_t nameEnd = 0;
  if (text.front() == '[') {
    nameEnd = text.find_first_not_of("0123456789abcdefABCDEF:.", 1);
    if (nameEnd == std::string_view::npos || nameEnd < 3 || text[nameEnd] != ']') return false;
    ++nameEnd;
  } else {
    const auto partOfName = [](char character) { return isUnreserved(character); };
    nameEnd = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), partOfName) -
                                       text.begin());
    if (nameEnd == 0) return false;
  }
  const std::string_view port = text.substr(nameEnd);
  return port.empty() || (port.size() >= 2 && port.size() <= 6 && port.front() == ':' &&
                          std::all_of(port.begin() + 1, port.end(), isDigit));
}

bool isOrigin(std::string_view text) {
  for (const std::string_view scheme : {"http://", "https://"})
    if (text.starts_with(scheme)) return isHost(text.substr(scheme.size()));
  return false;
}

std::optional<std::string> pathInPackage(std::string_view reference) {
  static constexpr std::string_view keptInQuery = "!$&'()*+,;=:@/?";
  if (hasScheme(reference) || reference.starts_with("//")) return std::nullopt;
  const std::size_t fragment = std::min(reference.find('#'), reference.size());
  const std::size_t query = std::min(reference.find('?'), fragment);
  auto path = resolvedPath(reference.substr(0, query));
  if (!path || path->empty()) return std::nullopt;
  if (query < fragment)
    *path +=
        '?' + percentEncodedRest(reference.substr(query + 1, fragment - query - 1), keptInQuery);
  if (fragment < reference.size())
    *path += '#' + percentEncodedRest(reference.substr(fragment + 1), keptInQuery);
  return path;
}

}  // namespace orivanta::server

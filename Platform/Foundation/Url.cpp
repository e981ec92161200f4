#include "Platform/Foundation/Url.hpp"

#include <algorithm>
#include <cctype>

#include "Platform/Foundation/AsciiCase.hpp"
#include "Platform/Foundation/UriParts.hpp"
#include "Platform/Foundation/UriResolution.hpp"

namespace orivanta::foundation {

namespace {

// Longer than any URL that servers accept.
constexpr std::size_t longestText = std::size_t{64} << 10U;

// A URL's text is well-formed.
UriParts partsOf(const Url& url) { return parseUri(url.absoluteString()).value_or(UriParts()); }

bool equalsIgnoringCase(std::string text, std::string_view lowercased) {
  return asciiLowercased(std::move(text)) == lowercased;
}

unsigned hexValue(char digit) {
  const auto value = static_cast<unsigned char>(digit);
  return value <= '9' ? value - '0' : (value | 0x20U) - 'a' + 10;
}

std::string percentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%') {
      decoded += static_cast<char>(hexValue(text[i + 1]) << 4U | hexValue(text[i + 2]));
      i += 2;
    } else {
      decoded += text[i];
    }
  }
  return decoded;
}

// Encodes everything except the unreserved characters and those in `kept`.
std::string percentEncoded(std::string_view text, std::string_view kept) {
  static constexpr char digits[] = "0123456789ABCDEF";
  static constexpr std::string_view marks = "-._~";
  std::string encoded;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isAlphanumeric = byte < 128 && std::isalnum(byte) != 0;
    if (isAlphanumeric || marks.find(character) != marks.npos ||
        kept.find(character) != kept.npos) {
      encoded += character;
    } else {
      encoded += '%';
      encoded += digits[byte >> 4U];
      encoded += digits[byte & 15U];
    }
  }
  return encoded;
}

// Keeps the characters without a special meaning in a query. "+" is encoded, since many servers
// decode it as a space.
std::string encodedQueryText(std::string_view text) { return percentEncoded(text, ":/?@!$'()*,;"); }

}  // namespace

std::optional<Url> Url::parse(std::string_view text) {
  if (text.empty() || text.size() > longestText || !parseUri(text)) return std::nullopt;
  return Url(std::string(text));
}

std::optional<Url> Url::parse(std::string_view text, const Url& base) {
  if (text.empty() || text.size() > longestText) return std::nullopt;
  const auto reference = parseUri(text);
  if (!reference) return std::nullopt;
  const UriParts baseParts = partsOf(base);
  if (!reference->scheme.empty() || baseParts.scheme.empty()) return Url(std::string(text));
  std::string resolved = resolveUri(*reference, baseParts);
  // Without a host, the path may begin with "//", which would be parsed as a host.
  const auto reread = parseUri(resolved);
  const bool namesHost = reference->authority || baseParts.authority;
  if (!reread || reread->authority.has_value() != namesHost) return std::nullopt;
  return Url(std::move(resolved));
}

Url Url::fromFile(const std::filesystem::path& path) {
  const std::string absolute = std::filesystem::absolute(path).string();
  return Url("file://" + percentEncoded(absolute.c_str(), "/"));  // up to the first NUL
}

bool Url::isAbsolute() const { return !partsOf(*this).scheme.empty(); }

std::string Url::scheme() const { return std::string(partsOf(*this).scheme); }

std::string Url::host() const { return std::string(partsOf(*this).host); }

std::string Url::port() const { return std::string(partsOf(*this).port); }

std::string Url::path() const { return std::string(partsOf(*this).path); }

std::string Url::query() const { return std::string(partsOf(*this).query.value_or("")); }

std::optional<std::pair<std::string, std::string>> Url::credentials() const {
  const auto text = partsOf(*this).userInfo;
  if (!text) return std::nullopt;
  const std::size_t colon = std::min(text->find(':'), text->size());
  return std::pair(percentDecoded(text->substr(0, colon)),
                   percentDecoded(text->substr(std::min(colon + 1, text->size()))));
}

Url Url::withoutCredentials() const {
  const UriParts parts = partsOf(*this);
  if (!parts.userInfo) return *this;
  const auto start = static_cast<std::size_t>(parts.userInfo->data() - text_.data());
  return Url(std::string(text_).erase(start, parts.userInfo->size() + 1));  // and the "@"
}

std::optional<std::string> Url::lastPathComponent() const {
  std::string_view text = partsOf(*this).path;
  if (text.empty()) return std::nullopt;
  while (text.ends_with('/')) text.remove_suffix(1);
  return percentDecoded(text.substr(text.rfind('/') + 1));
}

std::optional<std::filesystem::path> Url::filePath() const {
  const std::string hostName = host();
  if (!equalsIgnoringCase(scheme(), "file")) return std::nullopt;
  if (!hostName.empty() && !equalsIgnoringCase(hostName, "localhost")) return std::nullopt;
  std::string text = percentDecoded(partsOf(*this).path);
  if (!text.starts_with('/') || text.find('\0') != std::string::npos) return std::nullopt;
  return text;
}

Url Url::withQueryItems(std::span<const std::pair<std::string, std::string>> items) const {
  const std::string_view text = text_;
  const std::size_t fragmentStart = std::min(text.find('#'), text.size());
  std::string result(text.substr(0, std::min(text.find('?'), fragmentStart)));
  char separator = '?';
  for (const auto& [name, value] : items) {
    result += separator;
    result += encodedQueryText(name) + '=' + encodedQueryText(value);
    separator = '&';
  }
  result += text.substr(fragmentStart);
  return Url(std::move(result));
}

}  // namespace orivanta::foundation

#include "Platform/Foundation/Url.hpp"

#include <strings.h>
#include <uriparser/Uri.h>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace orivanta::foundation {

namespace {

// Longer than any URL that servers accept, and short enough for a recursive parser.
constexpr std::size_t longestText = std::size_t{64} << 10U;

// The library's parsed form, which points into the parsed text.
class ParsedUri {
 public:
  explicit ParsedUri(std::string_view text) {
    const char* errorPosition = nullptr;
    valid_ = uriParseSingleUriExA(&uri_, text.data(), text.data() + text.size(), &errorPosition) ==
             URI_SUCCESS;
  }
  ~ParsedUri() {
    if (valid_) uriFreeUriMembersA(&uri_);
  }
  ParsedUri(const ParsedUri&) = delete;
  ParsedUri& operator=(const ParsedUri&) = delete;

  bool valid() const { return valid_; }
  const UriUriA& operator*() const { return uri_; }
  const UriUriA* operator->() const { return &uri_; }

 private:
  UriUriA uri_{};
  bool valid_ = false;
};

std::string textOf(const UriTextRangeA& range) {
  return range.first == nullptr ? std::string() : std::string(range.first, range.afterLast);
}

std::string recomposed(const UriUriA& uri) {
  int length = 0;
  if (uriToStringCharsRequiredA(&uri, &length) != URI_SUCCESS) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  int written = 0;
  if (uriToStringA(text.data(), &uri, length + 1, &written) != URI_SUCCESS) return {};
  text.resize(static_cast<std::size_t>(written) - 1);
  return text;
}

std::string percentDecoded(std::string text) {
  const char* const end = uriUnescapeInPlaceExA(text.data(), URI_FALSE, URI_BR_DONT_TOUCH);
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

// Encodes everything except the unreserved characters and those without a special meaning in a
// query. "+" is encoded, since many servers decode it as a space.
std::string encodedQueryText(std::string_view text) {
  static constexpr char digits[] = "0123456789ABCDEF";
  static constexpr std::string_view kept = "-._~:/?@!$'()*,;";
  std::string encoded;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    const bool plain = byte < 128 && std::isalnum(byte) != 0;
    if (plain || kept.find(character) != std::string_view::npos) {
      encoded += character;
    } else {
      encoded += '%';
      encoded += digits[byte >> 4U];
      encoded += digits[byte & 15U];
    }
  }
  return encoded;
}

}  // namespace

std::optional<Url> Url::parse(std::string_view text) {
  if (text.empty() || text.size() > longestText || !ParsedUri(text).valid()) return std::nullopt;
  return Url(std::string(text));
}

std::optional<Url> Url::parse(std::string_view text, const Url& base) {
  if (text.empty() || text.size() > longestText) return std::nullopt;
  const ParsedUri reference(text);
  if (!reference.valid()) return std::nullopt;
  const bool absolute = reference->scheme.first != nullptr;
  const ParsedUri parsedBase(base.text_);
  if (absolute || parsedBase->scheme.first == nullptr) return Url(std::string(text));
  UriUriA resolved;
  if (uriAddBaseUriA(&resolved, &*reference, &*parsedBase) != URI_SUCCESS) return std::nullopt;
  std::string resolvedText = recomposed(resolved);
  const bool namesHost = resolved.hostText.first != nullptr;
  uriFreeUriMembersA(&resolved);
  // Without a host, the path may begin with "//", which would be parsed as a host.
  const ParsedUri reread(resolvedText);
  if (resolvedText.empty() || !reread.valid()) return std::nullopt;
  if ((reread->hostText.first != nullptr) != namesHost) return std::nullopt;
  return Url(std::move(resolvedText));
}

Url Url::fromFile(const std::filesystem::path& path) {
  constexpr std::size_t schemeBytes = 7;
  const std::string absolute = std::filesystem::absolute(path).string();
  std::string text(schemeBytes + 3 * absolute.size() + 1, '\0');
  uriUnixFilenameToUriStringA(absolute.c_str(), text.data());
  text.resize(std::strlen(text.c_str()));
  return Url(std::move(text));
}

bool Url::isAbsolute() const { return ParsedUri(text_)->scheme.first != nullptr; }

std::string Url::scheme() const { return textOf(ParsedUri(text_)->scheme); }

std::string Url::host() const { return textOf(ParsedUri(text_)->hostText); }

std::string Url::port() const { return textOf(ParsedUri(text_)->portText); }

std::optional<std::pair<std::string, std::string>> Url::credentials() const {
  const ParsedUri uri(text_);
  if (uri->userInfo.first == nullptr) return std::nullopt;
  const std::string text = textOf(uri->userInfo);
  const std::size_t colon = std::min(text.find(':'), text.size());
  return std::pair(percentDecoded(text.substr(0, colon)),
                   percentDecoded(text.substr(std::min(colon + 1, text.size()))));
}

Url Url::withoutCredentials() const {
  const ParsedUri uri(text_);
  if (uri->userInfo.first == nullptr) return *this;
  return Url(std::string(text_.data(), uri->userInfo.first) +
             (uri->userInfo.afterLast + 1));  // without the "@"
}

std::string Url::query() const { return textOf(ParsedUri(text_)->query); }

std::string Url::path() const {
  const ParsedUri uri(text_);
  std::string path;
  if (uri->absolutePath != URI_FALSE ||
      (uri->hostText.first != nullptr && uri->pathHead != nullptr))
    path += '/';
  for (const UriPathSegmentA* segment = uri->pathHead; segment != nullptr;
       segment = segment->next) {
    path += textOf(segment->text);
    if (segment->next != nullptr) path += '/';
  }
  return path;
}

std::optional<std::string> Url::lastPathComponent() const {
  std::string text = path();
  if (text.empty()) return std::nullopt;
  while (text.ends_with('/')) text.pop_back();
  return percentDecoded(text.substr(text.rfind('/') + 1));
}

std::optional<std::filesystem::path> Url::filePath() const {
  const std::string hostName = host();
  if (strcasecmp(scheme().c_str(), "file") != 0) return std::nullopt;
  if (!hostName.empty() && strcasecmp(hostName.c_str(), "localhost") != 0) return std::nullopt;
  std::string text = percentDecoded(path());
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

// What a client accepts: encodings, languages, and the representation that it already has.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::server {

/// Whether an Accept-Encoding header (RFC 9110, section 12.5.3) allows gzip and does not prefer the
/// plain text to it.
bool acceptsGzip(std::string_view acceptEncoding);

/// The language tags under which to look for a text, best first, in lower case and each once: every
/// range of an Accept-Language header in the order of its weight, followed by what is left of it
/// as subtags are cut from its end (RFC 4647, section 3.4). "ja-JP, en;q=0.5" gives ja-jp, ja, en.
/// Ranges of more than 35 characters, and all but the 64 best, are left out.
std::vector<std::string> languagesToLookUp(std::string_view acceptLanguage);

/// Whether an If-None-Match header names the entity tag (with its quotes), by weak comparison.
bool namesEntityTag(std::string_view ifNoneMatch, std::string_view entityTag);

/// A strong entity tag, with its quotes, for these bytes (FNV-1a of 64 bits, and their number).
std::string entityTagOf(std::string_view bytes, std::string_view suffix = {});

}  // namespace orivanta::server

// Content negotiation: encodings, languages, and whether the client's copy is still current.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::server {

/// Whether an Accept-Encoding header (RFC 9110, section 12.5.3) allows gzip and does not prefer
/// uncompressed content.
bool acceptsGzip(std::string_view acceptEncoding);

/// Whether an Accept header names HTML. Browsers do; most other programs accept everything.
bool acceptsHtml(std::string_view accept);

/// The language tags to look up, best first, in lower case, without duplicates: every range of an
/// Accept-Language header by descending weight, each followed by its shorter forms (RFC 4647,
/// section 3.4). "ja-JP, en;q=0.5" gives ja-jp, ja, en. Ranges of more than 35 characters are
/// ignored, and only the best 64 are used.
std::vector<std::string> languagesToLookUp(std::string_view acceptLanguage);

/// Whether an If-None-Match header contains the quoted entity tag, by weak comparison.
bool namesEntityTag(std::string_view ifNoneMatch, std::string_view entityTag);

/// A quoted strong entity tag for the bytes: their 64-bit FNV-1a hash and their number.
std::string entityTagOf(std::string_view bytes, std::string_view suffix = {});

/// The entity tag of the compressed form of what has this tag.
std::string gzipTag(std::string entityTag);

}  // namespace orivanta::server

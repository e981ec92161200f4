// Chooses a language by language tags (BCP 47).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orivanta::guidance {

/// Returns the best available language for a list of preferred tags or an HTTP `Accept-Language`
/// value, by the lookup of RFC 4647: a tag matches an available language with fewer subtags.
/// Wildcards and tags with the weight 0 are ignored. Of tags with equal weights, the first is
/// preferred. Returns "en" if nothing matches. Only the first 4 KiB are read.
std::string bestLanguage(std::string_view preferred, const std::vector<std::string>& available);

/// Returns whether a language is written from right to left, by the script in its tag or by the
/// usual script of the language.
bool isRightToLeft(std::string_view tag);

}  // namespace orivanta::guidance

// The user's preferred languages.
#pragma once

#include <string>
#include <vector>

namespace orivanta::foundation {

/// Language tags (RFC 5646) without duplicates, best first, from the environment variables LANGUAGE
/// (a list separated by colons), LC_ALL, LC_MESSAGES and LANG: "pt_BR.UTF-8" becomes "pt-BR".
/// Ignores the locales "C" and "POSIX" and entries that are not valid tags. Returns {"en"} if none
/// is left.
std::vector<std::string> preferredLanguages();

}  // namespace orivanta::foundation

// The user's preferred languages.
#pragma once

#include <string>
#include <vector>

namespace orivanta::foundation {

/// Language tags (RFC 5646), most wanted first, from the variables LANGUAGE (a list with colons),
/// LC_ALL, LC_MESSAGES and LANG of the environment, in this order and each tag once:
/// "pt_BR.UTF-8" becomes "pt-BR". The locales "C" and "POSIX" name no language and entries that
/// form no tag are left out. {"en"} when nothing is left.
std::vector<std::string> preferredLanguages();

}  // namespace orivanta::foundation

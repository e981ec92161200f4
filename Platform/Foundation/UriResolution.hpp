// Resolves URI references (RFC 3986).
#pragma once

#include <string>

#include "Platform/Foundation/UriParts.hpp"

namespace orivanta::foundation {

/// Returns the text of a reference that was resolved against a base with a scheme (RFC 3986,
/// section 5.2). An IPv6 address is written with all digits of its eight groups. If a relative path
/// leads to one that begins with an empty segment, "/." is put in front of it. An absolute path is
/// not protected in this way: without a host, the text may have to be read as one with a host.
std::string resolveUri(const UriParts& reference, const UriParts& base);

}  // namespace orivanta::foundation

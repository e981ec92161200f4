// Reads IPv6 addresses.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace orivanta::foundation {

/// Returns the eight groups of 16 bits of an address (RFC 3986, section 3.2.2), or nothing if the
/// text is not an address.
std::optional<std::vector<unsigned>> readIp6(std::string_view text);

}  // namespace orivanta::foundation

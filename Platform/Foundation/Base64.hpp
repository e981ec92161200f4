// Base64 (RFC 4648, section 4) with padding and without line breaks.
#pragma once

#include <string>
#include <string_view>

namespace orivanta::foundation {

std::string base64Encoded(std::string_view bytes);

}  // namespace orivanta::foundation

// Decompresses received bodies.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Returns the result with its body decoded according to its "Content-Encoding". A failed result is
/// returned as it is. Fails if the encoding is neither "gzip" nor "identity", if the body is
/// damaged or decodes to more than 512 MiB, or if there is not enough memory, also in the request's
/// budget. Do not call it on the transport's thread, because a large body takes a while. In a
/// browser bodies arrive decoded.
ORIVANTA_API UrlResult decoded(UrlResult result);

}  // namespace orivanta::network

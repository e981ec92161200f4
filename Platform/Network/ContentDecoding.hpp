// Decompresses received bodies.
#pragma once

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Decodes the body according to its "Content-Encoding", in place. Fails if the encoding is neither
/// "gzip" nor "identity", or if the body is damaged or decodes to more than 512 MiB. Throws
/// `BudgetExceeded` if the decoded body exceeds the request's budget. Do not call it on the
/// transport's thread, because a large body takes a while.
ORIVANTA_API foundation::Result<void> decodeBody(UrlAnswer& answer);

}  // namespace orivanta::network
